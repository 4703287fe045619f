#include "apps/office/UnoText.h"

#include <glib.h>
#include <sys/stat.h>

#include <memory>

namespace qb::office {
namespace {

using GText = std::unique_ptr<char, decltype(&g_free)>;

}  // namespace

std::string ToUtf8(const OUString& text) {
  const rtl::OString bytes = OUStringToOString(text, RTL_TEXTENCODING_UTF8);
  return {bytes.getStr(), static_cast<std::size_t>(bytes.getLength())};
}

OUString ToUno(std::string_view utf8) {
  return {utf8.data(), static_cast<sal_Int32>(utf8.size()), RTL_TEXTENCODING_UTF8};
}

OUString FileUrl(const std::string& path) {
  const GText url(g_filename_to_uri(path.c_str(), nullptr, nullptr), g_free);
  return url ? ToUno(url.get()) : OUString();
}

std::string FilePath(const OUString& url) {
  const GText path(g_filename_from_uri(ToUtf8(url).c_str(), nullptr, nullptr), g_free);
  return path ? path.get() : "";
}

bool IsSameFile(const std::string& one, const std::string& other) {
  struct stat first {};
  struct stat second {};
  return stat(one.c_str(), &first) == 0 && stat(other.c_str(), &second) == 0 &&
         first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

}  // namespace qb::office
