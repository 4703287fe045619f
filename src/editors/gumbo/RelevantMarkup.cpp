#include "editors/gumbo/RelevantMarkup.h"

#include <algorithm>
#include <array>

namespace qb {
namespace {

constexpr std::string_view kBlanks = " \t\n\f\r";

/// Elements whose content is text, tags or no tags.
constexpr std::array<std::string_view, 8> kTextElements{"title",  "script",  "style",    "textarea",
                                                        "iframe", "noembed", "noframes", "xmp"};
constexpr std::array<std::string_view, 3> kRelevantTags{"a", "area", "meta"};
constexpr std::array<std::string_view, 4> kRelevantAttributes{"href", "charset", "http-equiv", "content"};

template <std::size_t Size>
bool Has(const std::array<std::string_view, Size>& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

char AsciiLower(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte;
}

bool IsLetter(char byte) {
  const char lower = AsciiLower(byte);
  return lower >= 'a' && lower <= 'z';
}

std::string Lower(std::string_view name) {
  std::string lower(name);
  std::transform(lower.begin(), lower.end(), lower.begin(), AsciiLower);
  return lower;
}

class Scanner {
 public:
  explicit Scanner(std::string_view html) : html_(html) {}

  std::string Run() {
    while (SkipTo(html_.find('<', at_))) {
      if (Follows("<!--")) {
        SkipComment();
      } else if (IsLetter(ByteAt(at_ + 1))) {
        StartTag();
      } else if (ByteAt(at_ + 1) == '/' && IsLetter(ByteAt(at_ + 2))) {
        at_ += 2;
        Name("/>");
        std::string ignored;
        Attributes(ignored);
      } else if (const char next = ByteAt(at_ + 1); next == '!' || next == '?' || next == '/') {
        SkipTo(html_.find('>', at_));
      } else {
        ++at_;
      }
    }
    return std::move(result_);
  }

 private:
  char ByteAt(std::size_t place) const { return place < html_.size() ? html_[place] : '\0'; }
  bool Ended() const { return at_ >= html_.size(); }
  bool Follows(std::string_view text) const { return html_.substr(at_, text.size()) == text; }

  /// False at the end of the text.
  bool SkipTo(std::size_t place) {
    at_ = std::min(place, html_.size());
    return !Ended();
  }

  void SkipComment() {
    std::size_t dashes = html_.find("--", at_ + 2);
    while (dashes != std::string_view::npos) {
      const std::string_view rest = html_.substr(dashes + 2, 2);
      if (rest.starts_with('>') || rest == "!>") break;
      dashes = html_.find("--", dashes + 1);
    }
    SkipTo(dashes);
    SkipTo(html_.find('>', at_));
  }

  /// The name up to a blank or one of `ends`, in lower case.
  std::string Name(std::string_view ends) {
    const std::size_t start = at_;
    while (!Ended() && kBlanks.find(html_[at_]) == std::string_view::npos &&
           ends.find(html_[at_]) == std::string_view::npos) {
      ++at_;
    }
    return Lower(html_.substr(start, at_ - start));
  }

  void StartTag() {
    ++at_;
    const std::string name = Name("/>");
    std::string attributes;
    if (!Attributes(attributes)) return;  // the text ends inside the tag, which is none then
    if (Has(kRelevantTags, name)) result_ += "<" + name + attributes + "></" + name + ">";
    if (name == "plaintext") SkipTo(html_.size());
    if (Has(kTextElements, name)) TextElement(name);
  }

  void TextElement(std::string_view name) {
    const std::size_t start = at_;
    SkipTo(html_.find("</", at_));
    while (!Ended() && !EndTagFollows(name)) SkipTo(html_.find("</", at_ + 2));
    if (name != "title" || hasTitle_) return;
    hasTitle_ = true;
    result_ += "<title>";
    result_ += html_.substr(start, at_ - start);
    result_ += "</title>";
  }

  bool EndTagFollows(std::string_view name) const {
    if (Lower(html_.substr(at_ + 2, name.size())) != name) return false;
    const char next = ByteAt(at_ + 2 + name.size());
    return next == '>' || next == '/' || kBlanks.find(next) != std::string_view::npos;
  }

  /// Adds the attributes that count, the first of each name, and moves behind the tag. False if the text ends
  /// before.
  bool Attributes(std::string& attributes) {
    std::array<bool, kRelevantAttributes.size()> seen{};
    while (SkipTo(html_.find_first_not_of(" \t\n\f\r/", at_))) {
      if (html_[at_] == '>') {
        ++at_;
        return true;
      }
      Attribute(attributes, seen);
    }
    return false;
  }

  void Attribute(std::string& attributes, std::array<bool, kRelevantAttributes.size()>& seen) {
    const std::size_t start = at_;
    ++at_;  // a name may begin with what ends one
    Name("/>=");
    const std::string name = Lower(html_.substr(start, at_ - start));
    const std::string_view value = Value();
    const auto* const found = std::find(kRelevantAttributes.begin(), kRelevantAttributes.end(), name);
    if (found == kRelevantAttributes.end()) return;
    bool& again = seen.at(static_cast<std::size_t>(found - kRelevantAttributes.begin()));
    if (again) return;
    again = true;
    attributes += " " + name + "=\"";
    for (const char byte : value) {
      if (byte == '"') {
        attributes += "&quot;";
      } else {
        attributes += byte;
      }
    }
    attributes += '"';
  }

  /// The value as it is written, without its quotes; empty without one.
  std::string_view Value() {
    const std::size_t behindName = at_;
    if (!SkipTo(html_.find_first_not_of(kBlanks, at_)) || html_[at_] != '=') {
      at_ = behindName;
      return {};
    }
    if (!SkipTo(html_.find_first_not_of(kBlanks, at_ + 1))) return {};
    const char quote = html_[at_];
    const bool quoted = quote == '"' || quote == '\'';
    if (quoted) ++at_;
    const std::size_t start = at_;
    SkipTo(quoted ? html_.find(quote, at_) : html_.find_first_of(" \t\n\f\r>", at_));
    const std::string_view value = html_.substr(start, at_ - start);
    if (quoted && !Ended()) ++at_;
    return value;
  }

  std::string_view html_;
  std::size_t at_ = 0;
  std::string result_;
  bool hasTitle_ = false;
};

}  // namespace

std::string RelevantMarkup(std::string_view html) {
  return Scanner(html).Run();
}

}  // namespace qb
