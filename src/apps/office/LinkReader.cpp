#include "apps/office/LinkReader.h"

#include <glib.h>

#include <algorithm>
#include <array>
#include <memory>

#include "apps/office/Failure.h"

namespace qb::office {
namespace {

template <std::size_t Count>
bool IsAmong(std::string_view name, const std::array<std::string_view, Count>& names) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

constexpr std::array<std::string_view, 7> kLinks = {"text:a",
                                                    "draw:a",
                                                    "form:button",
                                                    "presentation:event-listener",
                                                    "draw:area-rectangle",
                                                    "draw:area-circle",
                                                    "draw:area-polygon"};
/// Text that is not the document's any more, or not its own.
constexpr std::array<std::string_view, 2> kForeign = {"text:tracked-changes", "office:annotation"};
/// What may stand between two pieces of one link.
constexpr std::array<std::string_view, 9> kUnseen = {"text:span",
                                                     "text:bookmark",
                                                     "text:bookmark-start",
                                                     "text:bookmark-end",
                                                     "text:reference-mark-start",
                                                     "text:reference-mark-end",
                                                     "text:change-start",
                                                     "text:change-end",
                                                     "text:soft-page-break"};

bool IsMargin(std::string_view name) {
  return name.starts_with("style:header") || name.starts_with("style:footer");
}

std::string WithoutLineBreaks(std::string address) {
  std::erase_if(address, [](char letter) { return letter == '\n' || letter == '\r'; });
  return address;
}

class Reader {
 public:
  void Begin(std::string_view name, const char** names, const char** values) {
    if (skipped_ > 0 || IsForeign(name, names, values)) {
      ++skipped_;
      return;
    }
    if (name == "office:master-styles") isMaster_ = true;
    if (name == "office:presentation" || name == "office:drawing") {
      // What lies below every slide is none's own.
      hasSlides_ = true;
      margins_.clear();
    }
    if (hasSlides_ && name == "draw:page") found_.slides.emplace_back();
    if (IsAmong(name, kLinks)) {
      BeginLink(name, Value("xlink:href", names, values));
    } else if (depthInLink_ == 0 && !IsAmong(name, kUnseen)) {
      last_.clear();
    }
    if (name == "text:a") ++depthInLink_;
  }

  void End(std::string_view name) {
    if (skipped_ > 0) {
      --skipped_;
      return;
    }
    if (name == "office:master-styles") isMaster_ = false;
    if (name == "text:a") --depthInLink_;
    if (name == "draw:a") around_.clear();
    if (name == "text:p" || name == "text:h") last_.clear();
  }

  void Text(std::string_view text) {
    if (skipped_ == 0 && depthInLink_ == 0 && !text.empty()) last_.clear();
  }

  Links Result() {
    found_.links.insert(found_.links.end(), margins_.begin(), margins_.end());
    return std::move(found_);
  }

 private:
  static std::string Value(std::string_view wanted, const char** names, const char** values) {
    for (; *names; ++names, ++values) {
      if (*names == wanted) return *values;
    }
    return "";
  }

  static bool IsForeign(std::string_view name, const char** names, const char** values) {
    return IsAmong(name, kForeign) || (IsMargin(name) && Value("style:display", names, values) == "false");
  }

  void BeginLink(std::string_view name, const std::string& href) {
    const std::string address = WithoutLineBreaks(href);
    const bool isPiece = name == "text:a" && address == last_;
    // The action of a shape is written a second time around it.
    const bool isAction = name == "presentation:event-listener" && address == around_;
    if (!address.empty() && !isPiece && !isAction) Place().push_back(address);
    last_ = name == "text:a" ? address : "";
    if (name == "draw:a") around_ = address;
  }

  std::vector<std::string>& Place() {
    if (isMaster_) return margins_;
    return hasSlides_ && !found_.slides.empty() ? found_.slides.back() : found_.links;
  }

  Links found_;
  std::vector<std::string> margins_;
  std::string last_;
  std::string around_;
  int skipped_ = 0;
  int depthInLink_ = 0;
  bool isMaster_ = false;
  bool hasSlides_ = false;
};

void OnBegin(GMarkupParseContext* /*context*/, const char* name, const char** names, const char** values,
             gpointer reader, GError** /*error*/) {
  static_cast<Reader*>(reader)->Begin(name, names, values);
}

void OnEnd(GMarkupParseContext* /*context*/, const char* name, gpointer reader, GError** /*error*/) {
  static_cast<Reader*>(reader)->End(name);
}

void OnText(GMarkupParseContext* /*context*/, const char* text, gsize size, gpointer reader,
            GError** /*error*/) {
  static_cast<Reader*>(reader)->Text({text, size});
}

}  // namespace

Links ReadLinks(std::string_view xml) {
  constexpr GMarkupParser kParser{OnBegin, OnEnd, OnText, nullptr, nullptr};
  Reader reader;
  const std::unique_ptr<GMarkupParseContext, decltype(&g_markup_parse_context_free)> context(
      g_markup_parse_context_new(&kParser, GMarkupParseFlags(0), &reader, nullptr),
      g_markup_parse_context_free);
  GError* error = nullptr;
  if (!g_markup_parse_context_parse(context.get(), xml.data(), static_cast<gssize>(xml.size()), &error) ||
      !g_markup_parse_context_end_parse(context.get(), &error)) {
    const std::string text = error->message;
    g_error_free(error);
    throw Failure("office", "The office's copy of the document cannot be read: " + text);
  }
  return reader.Result();
}

}  // namespace qb::office
