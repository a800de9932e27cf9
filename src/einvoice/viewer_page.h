#pragma once

#include "einvoice/viewer_html_generator.h"
#include "model/postal_address.h"
#include "model/template_text.h"

namespace ledra {

/// The values of the viewer's template for one document, all of them escaped.
class ViewerPage
{
public:
    ViewerPage(const OpenedEInvoice& opened, const ViewerSetting& setting)
        : opened_(opened), invoice_(opened.viewer.invoice), setting_(setting)
    {}

    TemplateValues values();

private:
    void addFrame();
    void addHead();
    void addTotals();
    void addSender();
    void set(const char* placeholder, const QString& html)
    {
        values_[QString::fromLatin1(placeholder)] = html;
    }
    void setLabelled(const char* placeholder, const QString& html, const char* labelPlaceholder,
                     const char* label);

    QString label(const char* key) const;
    QString day(Timestamp moment, bool isStated) const;
    QString amount(double value) const;
    QString totalRow(const QString& heading, const QString& value) const;
    QString itemRow(const Invoice::Item& item) const;
    QString vatRows() const;
    QString addressLines(const PostalAddress& address, const Country& other) const;
    QString statedTotals() const;
    QString paymentPeriod() const;
    QString attachments() const;

    const OpenedEInvoice& opened_;
    const Invoice& invoice_;
    ViewerSetting setting_;
    TemplateValues values_;
};

} // namespace ledra
