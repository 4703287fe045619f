#include "editors/gumbo/GumboHtmlParser.h"

#include <gumbo.h>

#include <memory>
#include <string>
#include <vector>

#include "editors/gumbo/HtmlCodePage.h"
#include "editors/gumbo/RelevantMarkup.h"
#include "model/CPxfFile.h"
#include "platform/Platform.h"
#include "runtime/Text.h"

namespace qb {
namespace {

/// What stands in front of the first element is enough to declare a code page.
constexpr std::size_t kDeclarationBytes = 65536;

// One generation of the parser wants its options back for this, the next one does not.
[[maybe_unused]] void DestroyWith(void (*destroy)(const GumboOptions*, GumboOutput*), GumboOutput* output) {
  destroy(&kGumboDefaultOptions, output);
}
[[maybe_unused]] void DestroyWith(void (*destroy)(GumboOutput*), GumboOutput* output) {
  destroy(output);
}

struct Destroy {
  void operator()(GumboOutput* output) const { DestroyWith(gumbo_destroy_output, output); }
};

/// The elements of a text, in its order.
class Elements {
 public:
  explicit Elements(std::string_view html)
      : markup_(RelevantMarkup(html)),
        output_(gumbo_parse_with_options(&kGumboDefaultOptions, markup_.data(), markup_.size())) {
    if (output_ != nullptr) Collect(*output_->root);
  }
  const std::vector<const GumboElement*>& All() const { return all_; }

 private:
  // Nothing in the markup is nested, so the tree is flat.
  void Collect(const GumboNode& node) {
    if (node.type != GUMBO_NODE_ELEMENT) return;
    all_.push_back(&node.v.element);
    const GumboVector& children = node.v.element.children;
    for (unsigned i = 0; i < children.length; ++i) Collect(*static_cast<const GumboNode*>(children.data[i]));
  }

  std::string markup_;
  std::unique_ptr<GumboOutput, Destroy> output_;
  std::vector<const GumboElement*> all_;
};

std::string_view ValueOf(const GumboElement& element, const char* name) {
  const GumboAttribute* const attribute = gumbo_get_attribute(&element.attributes, name);
  return attribute == nullptr ? std::string_view() : attribute->value;
}

bool IsBlank(char byte) {
  return static_cast<unsigned char>(byte) <= ' ';
}

/// The text with each run of blanks as one, none at its ends: as a browser shows a title.
std::string Collapsed(std::string_view text) {
  std::string collapsed;
  for (const char byte : text) {
    if (!IsBlank(byte)) {
      collapsed += byte;
    } else if (!collapsed.empty() && collapsed.back() != ' ') {
      collapsed += ' ';
    }
  }
  if (collapsed.ends_with(' ')) collapsed.pop_back();
  return collapsed;
}

/// The address without blanks around it and without line breaks and tabs, which count for nothing in one.
std::string Address(std::string_view href) {
  while (!href.empty() && IsBlank(href.front())) href.remove_prefix(1);
  while (!href.empty() && IsBlank(href.back())) href.remove_suffix(1);
  std::string address;
  for (const char byte : href) {
    if (byte != '\t' && byte != '\n' && byte != '\r') address += byte;
  }
  return address;
}

std::string TextIn(const GumboElement& element) {
  std::string text;
  for (unsigned i = 0; i < element.children.length; ++i) {
    const auto& child = *static_cast<const GumboNode*>(element.children.data[i]);
    if (child.type == GUMBO_NODE_TEXT || child.type == GUMBO_NODE_WHITESPACE) text += child.v.text.text;
  }
  return text;
}

CodePage DeclaredCodePage(std::string_view bytes) {
  const Elements elements(bytes.substr(0, kDeclarationBytes));
  for (const GumboElement* element : elements.All()) {
    if (element->tag != GUMBO_TAG_META) continue;
    std::string charset(ValueOf(*element, "charset"));
    if (EqualIgnoringCase(ValueOf(*element, "http-equiv"), "Content-Type")) {
      charset = CharsetOfContent(ValueOf(*element, "content"));
    }
    if (const auto codePage = CodePageOfCharset(charset)) return *codePage;
  }
  return ThePlatform().profiles->CodePageOf(ThePxfFile().strFileName);
}

std::string Decoded(std::string_view bytes) {
  if (bytes.starts_with("\xEF\xBB\xBF")) return std::string(bytes.substr(3));
  if (bytes.starts_with("\xFF\xFE")) return DecodeUtf16(bytes.substr(2), false);
  if (bytes.starts_with("\xFE\xFF")) return DecodeUtf16(bytes.substr(2), true);
  return ThePlatform().codec->Decode(bytes, DeclaredCodePage(bytes));
}

class GumboHtmlParser : public IHtmlParser {
 public:
  std::string Title() override { return title_; }

  void Parse(std::string_view fileName, std::vector<TaggedValue>& links, std::int32_t /*first*/,
             std::int32_t /*second*/, std::int32_t& code) override {
    constexpr std::int32_t kSuccess = 0;
    links.clear();
    title_.clear();
    const Elements elements(Decoded(ThePlatform().files->Read(fileName)));
    for (const GumboElement* element : elements.All()) {
      if (element->tag == GUMBO_TAG_TITLE) title_ = Collapsed(TextIn(*element));
      if (element->tag != GUMBO_TAG_A && element->tag != GUMBO_TAG_AREA) continue;
      std::string address = Address(ValueOf(*element, "href"));
      if (!address.empty()) links.emplace_back(std::move(address));
    }
    code = kSuccess;
  }

 private:
  std::string title_;
};

}  // namespace

std::shared_ptr<IHtmlParser> MakeGumboHtmlParser() {
  return std::make_shared<GumboHtmlParser>();
}

}  // namespace qb
