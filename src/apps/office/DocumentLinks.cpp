#include "apps/office/DocumentLinks.h"

#include <array>
#include <com/sun/star/beans/XPropertyContainer.hpp>
#include <com/sun/star/document/XExporter.hpp>
#include <com/sun/star/document/XFilter.hpp>
#include <com/sun/star/io/SequenceOutputStream.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <com/sun/star/util/XModifiable.hpp>
#include <com/sun/star/xml/sax/Writer.hpp>

#include "apps/office/Failure.h"
#include "apps/office/UnoText.h"

namespace qb::office {

namespace star = com::sun::star;

namespace {

std::string ExporterOf(const std::string& kind) {
  if (kind == "presentation") return "com.sun.star.comp.Impress.XMLOasisExporter";
  if (kind == "drawing") return "com.sun.star.comp.Draw.XMLOasisExporter";
  return "com.sun.star.comp.Writer.XMLOasisExporter";
}

/// Says which file the addresses shall be relative to.
Reference<star::beans::XPropertySet> BaseOf(const Reference<uno::XComponentContext>& context,
                                            const std::string& base) {
  const Reference<star::beans::XPropertyContainer> bag(
      context->getServiceManager()->createInstanceWithContext("com.sun.star.beans.PropertyBag", context),
      UNO_QUERY_THROW);
  bag->addProperty("BaseURI", 0, Any(FileUrl(base)));
  return Reference<star::beans::XPropertySet>(bag, UNO_QUERY_THROW);
}

}  // namespace

std::string TextForLinks(const Reference<uno::XComponentContext>& context,
                         const Reference<star::frame::XModel>& model, const std::string& kind,
                         const std::string& base) {
  const Reference<star::io::XSequenceOutputStream> text = star::io::SequenceOutputStream::create(context);
  const Reference<star::xml::sax::XWriter> writer = star::xml::sax::Writer::create(context);
  writer->setOutputStream(Reference<star::io::XOutputStream>(text, UNO_QUERY_THROW));
  const std::array<Any, 2> arguments = {
      Any(Reference<star::xml::sax::XDocumentHandler>(writer, UNO_QUERY_THROW)), Any(BaseOf(context, base))};
  const Reference<uno::XInterface> exporter =
      context->getServiceManager()->createInstanceWithArgumentsAndContext(
          ToUno(ExporterOf(kind)), uno::Sequence<Any>(arguments.data(), arguments.size()), context);
  Reference<star::document::XExporter>(exporter, UNO_QUERY_THROW)
      ->setSourceDocument(Reference<star::lang::XComponent>(model, UNO_QUERY_THROW));
  const Reference<star::util::XModifiable> document(model, UNO_QUERY_THROW);
  const bool wasModified = document->isModified();
  const bool written = Reference<star::document::XFilter>(exporter, UNO_QUERY_THROW)
                           ->filter(ToArguments({Named("FileName", Any(FileUrl(base)))}));
  // A presentation counts as changed by that, and would ask to be saved again.
  if (!wasModified) document->setModified(false);
  if (!written) throw Failure("office", "The links cannot be read");
  const uno::Sequence<sal_Int8> bytes = text->getWrittenBytes();
  return {reinterpret_cast<const char*>(bytes.getConstArray()), static_cast<std::size_t>(bytes.getLength())};
}

}  // namespace qb::office
