#include "einvoice/xmp_packet.h"

#include <array>

namespace ledra {

namespace {

constexpr auto packetStart = R"(" id="W5M0MpCehiHzreSzNTczkc9d"?>
<x:xmpmeta xmlns:x="adobe:ns:meta/">
  <rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#">
    <rdf:Description rdf:about=""
        xmlns:pdfaid="http://www.aiim.org/pdfa/ns/id/"
        xmlns:pdfaExtension="http://www.aiim.org/pdfa/ns/extension/"
        xmlns:pdfaSchema="http://www.aiim.org/pdfa/ns/schema#"
        xmlns:pdfaProperty="http://www.aiim.org/pdfa/ns/property#"
        xmlns:fx="urn:factur-x:pdfa:CrossIndustryDocument:invoice:1p0#">
      <pdfaid:part>3</pdfaid:part>
      <pdfaid:conformance>B</pdfaid:conformance>
      <fx:DocumentType>INVOICE</fx:DocumentType>
      <fx:DocumentFileName>factur-x.xml</fx:DocumentFileName>
      <fx:Version>1.0</fx:Version>
      <fx:ConformanceLevel>XRECHNUNG</fx:ConformanceLevel>
      <pdfaExtension:schemas>
        <rdf:Bag>
          <rdf:li rdf:parseType="Resource">
            <pdfaSchema:schema>Factur-X PDFA Extension Schema</pdfaSchema:schema>
            <pdfaSchema:namespaceURI>urn:factur-x:pdfa:CrossIndustryDocument:invoice:1p0#</pdfaSchema:namespaceURI>
            <pdfaSchema:prefix>fx</pdfaSchema:prefix>
            <pdfaSchema:property>
              <rdf:Seq>
)";

constexpr auto packetEnd = R"(              </rdf:Seq>
            </pdfaSchema:property>
          </rdf:li>
        </rdf:Bag>
      </pdfaExtension:schemas>
    </rdf:Description>
  </rdf:RDF>
</x:xmpmeta>
<?xpacket end="w"?>)";

/// A property that the extension schema declares.
struct DeclaredProperty
{
    const char* name;
    const char* description;
};

constexpr std::array properties = {
    DeclaredProperty{"DocumentFileName", "Name of the embedded XML invoice file"},
    DeclaredProperty{"DocumentType", "Type of the hybrid document"},
    DeclaredProperty{"Version", "Version of the Factur-X XML schema"},
    DeclaredProperty{"ConformanceLevel", "Conformance level of the Factur-X data"},
};

QByteArray declaration(const DeclaredProperty& property)
{
    const QByteArray indent(16, ' ');
    const auto line = [&](const char* element, const char* value) {
        return indent + "  <pdfaProperty:" + element + '>' + value + "</pdfaProperty:" + element + ">\n";
    };
    return indent + "<rdf:li rdf:parseType=\"Resource\">\n" + line("name", property.name) +
           line("valueType", "Text") + line("category", "external") +
           line("description", property.description) + indent + "</rdf:li>\n";
}

} // namespace

QByteArray xmpPacket()
{
    QByteArray packet = QByteArrayLiteral("<?xpacket begin=\"\xef\xbb\xbf") + packetStart;
    for (const DeclaredProperty& property : properties)
        packet += declaration(property);
    return packet + packetEnd;
}

} // namespace ledra
