#pragma once

#include "einvoice/viewer_xml_parser.h"
#include "ui/jobs/temporary_folders.h"
#include "ui/window_parts.h"

namespace ledra {

/// Received invoices on paper: always in the light colours, on sheets of the size that the user's own
/// documents have.
class ViewerPaper
{
public:
    ViewerPaper(const WindowParts& parts, TemporaryFolders& folders) : parts_(parts), folders_(folders) {}

    // Each asks first.
    void print(const OpenedEInvoice& opened);
    void save(const OpenedEInvoice& opened);

    using Made = std::function<void(const QByteArray& pdf)>;

    /// Makes the PDF. Nothing is called if that fails, which is said.
    void make(const OpenedEInvoice& opened, const Made& made);

private:
    PageFormat paper() const;

    const WindowParts& parts_;
    TemporaryFolders& folders_;
};

/// "Invoice 2026-007", by which a received document goes in dialogs and file names.
QString documentName(const OpenedEInvoice& opened);

/// Writes a file in the place that the user has chosen and says so, or why not.
void saveWithNotice(const WindowParts& parts, const QByteArray& content, const QString& target);

} // namespace ledra
