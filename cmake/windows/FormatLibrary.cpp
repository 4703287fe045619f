// The compiled half of {fmt}, whose headers hold it too. As headers only, it would be compiled again for
// every source.
#include <fmt/format-inl.h>

namespace fmt {
inline namespace v9 {
namespace detail {

template locale_ref::locale_ref(const std::locale& loc);
template std::locale locale_ref::get<std::locale>() const;
template dragonbox::decimal_fp<float> dragonbox::to_decimal(float x) noexcept;
template dragonbox::decimal_fp<double> dragonbox::to_decimal(double x) noexcept;
template thousands_sep_result<char> thousands_sep_impl(locale_ref);
template char decimal_point_impl(locale_ref);
template void buffer<char>::append(const char*, const char*);
template void vformat_to(buffer<char>&, string_view, basic_format_args<FMT_BUFFER_CONTEXT(char)>, locale_ref);

}  // namespace detail
}  // namespace v9
}  // namespace fmt
