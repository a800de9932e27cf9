#pragma once

#include <QByteArray>
#include <QString>

#include <expected>

namespace ledra {

/// Makes a hybrid e-invoice: a PDF/A-3 whose pages people read and whose attachment programs read. The
/// finished PDF stays as it is; what makes it hybrid is appended as an incremental update.
class ZUGFeRDGenerator
{
public:
    /// Why there is no hybrid.
    struct ExportError
    {
        enum class Kind { combineFailed, invalidPDF };

        Kind kind = Kind::invalidPDF;
        QString reason = {}; ///< of combineFailed

        /// For users.
        QString text() const;
    };

    /// @param pdf a document whose fonts are embedded; @param xml a Cross Industry Invoice
    [[nodiscard]] static std::expected<QByteArray, ExportError> createHybrid(const QByteArray& pdf,
                                                                             const QByteArray& xml);

    /// The first half: the document with the annotation flags that PDF/A asks for, which the hybrid begins
    /// with.
    [[nodiscard]] static std::expected<QByteArray, ExportError>
    withPrintableAnnotations(const QByteArray& pdf);

    /// The second half: appends the update to such a document.
    [[nodiscard]] static std::expected<QByteArray, ExportError> withAttachedXml(const QByteArray& pdf,
                                                                                const QByteArray& xml);
};

/// The name under which the e-invoice is attached.
inline constexpr QStringView hybridAttachmentName = u"factur-x.xml";

// A string in a PDF/A may be this long at most, in bytes (ISO 19005-3, 6.1.13).
inline constexpr qsizetype longestPdfAString = 32'767;

} // namespace ledra
