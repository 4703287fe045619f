#include "platform/win32/ComValues.h"

#include <limits>
#include <new>

#include "platform/win32/ComFailure.h"
#include "platform/win32/Win32Text.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

BSTR NewText(std::string_view utf8) {
  const std::wstring wide = Wide(utf8);
  BSTR const text = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (text == nullptr) throw std::bad_alloc();
  return text;
}

struct Fill {
  VARIANT& value;
  void operator()(std::monostate) const {}
  void operator()(bool truth) const {
    value.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
    value.vt = VT_BOOL;
  }
  void operator()(std::int32_t number) const {
    value.lVal = number;
    value.vt = VT_I4;
  }
  void operator()(double number) const {
    value.dblVal = number;
    value.vt = VT_R8;
  }
  void operator()(const std::string& text) const {
    value.bstrVal = NewText(text);
    value.vt = VT_BSTR;
  }
};

/// What only reads a value may still ask for one that it could change.
VARIANT* Source(const VARIANT& value) {
  return const_cast<VARIANT*>(&value);
}

/// `value` as a value of another type.
VARIANT Changed(const VARIANT& value, VARTYPE type) {
  VARIANT changed;
  VariantInit(&changed);
  CheckCom(VariantChangeType(&changed, Source(value), 0, type), "value");
  return changed;
}

std::string ChangedToText(const VARIANT& value) {
  VARIANT text = Changed(value, VT_BSTR);
  std::string utf8 = ComText::TextOf(text.bstrVal);
  VariantClear(&text);
  return utf8;
}

TaggedValue WholeNumber(const VARIANT& value) {
  const double number = Changed(value, VT_R8).dblVal;
  using Limits = std::numeric_limits<std::int32_t>;
  if (number < Limits::min() || number > Limits::max()) return number;
  return static_cast<std::int32_t>(number);
}

}  // namespace

ComText::ComText(std::string_view utf8) : text_(NewText(utf8)) {
}

std::string ComText::TextOf(BSTR text) {
  return Utf8({text, SysStringLen(text)});
}

ComValue::ComValue(const TaggedValue& value) : ComValue() {
  std::visit(Fill{value_}, value);
}

TaggedValue ComValue::TaggedOf(const VARIANT& value) {
  if ((value.vt & VT_BYREF) != 0) {
    ComValue direct;
    CheckCom(VariantCopyInd(direct.Out(), Source(value)), "value");
    return direct.Tagged();
  }
  switch (value.vt) {
    case VT_EMPTY:
    case VT_NULL:
      return {};
    case VT_BOOL:
      return value.boolVal != VARIANT_FALSE;
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_I8:
    case VT_INT:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UI8:
    case VT_UINT:
      return WholeNumber(value);
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DECIMAL:
      return Changed(value, VT_R8).dblVal;
    case VT_BSTR:
      return ComText::TextOf(value.bstrVal);
    case VT_DATE:
      return ChangedToText(value);
    default:
      throw RuntimeError(failure::kTypeMismatch);
  }
}

}  // namespace qb
