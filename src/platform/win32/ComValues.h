#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/win32/ComHeaders.h"
#include "runtime/TaggedValue.h"

namespace qb {

/// A text as automation passes it. Any character may stand in it, NUL too.
class ComText {
 public:
  ComText() = default;
  explicit ComText(std::string_view utf8);
  ComText(const ComText&) = delete;
  ComText& operator=(const ComText&) = delete;
  ~ComText() { SysFreeString(text_); }

  BSTR Get() const { return text_; }
  /// The characters, which are the caller's from here on.
  BSTR Detach() { return std::exchange(text_, nullptr); }
  /// Where a call may put a text; only for an empty one.
  BSTR* Out() { return &text_; }
  std::string Text() const { return TextOf(text_); }
  static std::string TextOf(BSTR text);

 private:
  BSTR text_ = nullptr;
};

/// A tagged value as automation passes it.
class ComValue {
 public:
  ComValue() { VariantInit(&value_); }
  explicit ComValue(const TaggedValue& value);
  ComValue(ComValue&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
  ComValue& operator=(ComValue&&) = delete;
  ~ComValue() { VariantClear(&value_); }

  const VARIANT& Get() const { return value_; }
  /// Where a call may put a value; only for an empty one.
  VARIANT* Out() { return &value_; }
  /// The value; what has no value is empty, a date is a text in the user's own form. Raises 13 for an object,
  /// an array or an error.
  TaggedValue Tagged() const { return TaggedOf(value_); }
  static TaggedValue TaggedOf(const VARIANT& value);

 private:
  VARIANT value_;
};

}  // namespace qb
