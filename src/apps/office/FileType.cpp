#include "apps/office/FileType.h"

#include <algorithm>
#include <cctype>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/document/XTypeDetection.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "apps/office/Failure.h"
#include "apps/office/UnoText.h"

namespace qb::office {

namespace container = com::sun::star::container;

namespace {

constexpr sal_Int32 kImportFlag = 1;
constexpr sal_Int32 kExportFlag = 2;

template <class Interface>
Reference<Interface> Service(const Reference<uno::XComponentContext>& context, const char* name) {
  return {context->getServiceManager()->createInstanceWithContext(OUString::createFromAscii(name), context),
          UNO_QUERY_THROW};
}

Arguments Description(const Reference<container::XNameAccess>& all, const OUString& name) {
  Arguments values;
  if (all->hasByName(name)) all->getByName(name) >>= values;
  return values;
}

/// Lower case, without the point.
std::string Extension(const std::string& path) {
  std::string extension = std::filesystem::path(path).extension().string();
  if (!extension.empty()) extension.erase(0, 1);
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  return extension;
}

/// The kind of document that a filter makes, by the service that it names.
std::string KindOf(const OUString& service) {
  if (service == "com.sun.star.text.WebDocument") return "web";
  if (service == "com.sun.star.text.TextDocument" || service == "com.sun.star.text.GlobalDocument")
    return "text";
  if (service == "com.sun.star.presentation.PresentationDocument") return "presentation";
  if (service == "com.sun.star.drawing.DrawingDocument") return "drawing";
  return "";
}

bool IsPageName(const std::string& extension) {
  return extension == "htm" || extension == "html";
}

/// Whether there is a mark in the text, such as <b> or <!-- -->; the office only looks for one near the
/// beginning.
bool HasMark(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  if (text.find('\0') != std::string::npos) return false;
  for (std::size_t mark = text.find('<'); mark != std::string::npos; mark = text.find('<', mark + 1)) {
    const char next = mark + 1 < text.size() ? text[mark + 1] : ' ';
    if (next == '!' || next == '/' || std::isalpha(static_cast<unsigned char>(next))) return true;
  }
  return false;
}

bool IsNameOf(const std::string& extension, const OUString& type, const Arguments& description) {
  // What writes this format has always been allowed to call it a Word document, and it stays what it is.
  if (extension == "doc" && type.indexOf("Rich_Text_Format") >= 0) return true;
  uno::Sequence<OUString> extensions;
  ValueOf(description, "Extensions") >>= extensions;
  return std::any_of(extensions.begin(), extensions.end(), [&extension](const OUString& one) {
    return one.equalsIgnoreAsciiCaseAscii(extension.c_str());
  });
}

}  // namespace

FileType DetectFileType(const Reference<uno::XComponentContext>& context, const std::string& path) {
  const auto detection =
      Service<com::sun::star::document::XTypeDetection>(context, "com.sun.star.document.TypeDetection");
  Arguments descriptor = ToArguments({Named("URL", Any(FileUrl(path))), Named("ReadOnly", Any(true))});
  FileType found;
  found.type = detection->queryTypeByDescriptor(descriptor, true);
  if (found.type.isEmpty()) throw Failure("damaged", path + " is not a document that the office knows");
  const bool isPage = IsPageName(Extension(path)) && found.type == "generic_Text" && HasMark(path);
  if (isPage) found.type = "generic_HTML";

  const Arguments type =
      Description(Reference<container::XNameAccess>(detection, UNO_QUERY_THROW), found.type);
  if (!IsNameOf(Extension(path), found.type, type)) {
    OUString name;
    ValueOf(type, "UIName") >>= name;
    throw Failure("damaged",
                  path + " is not what its name says, but " + ToUtf8(name.isEmpty() ? found.type : name));
  }
  if (!isPage) ValueOf(descriptor, "FilterName") >>= found.filter;
  if (found.filter.isEmpty()) ValueOf(type, "PreferredFilter") >>= found.filter;
  const auto filters = Service<container::XNameAccess>(context, "com.sun.star.document.FilterFactory");
  const Arguments filter = Description(filters, found.filter);
  OUString service;
  ValueOf(filter, "DocumentService") >>= service;
  found.kind = KindOf(service);
  sal_Int32 flags = 0;
  ValueOf(filter, "Flags") >>= flags;
  if ((flags & kImportFlag) == 0)
    throw Failure("damaged", path + " is not a document that the office can read");
  found.isWritable = (flags & kExportFlag) != 0;
  return found;
}

}  // namespace qb::office
