#pragma once

#include "app/ledra_app.h"
#include "sample_invoices.h"
#include "timing.h"

#include <QFile>

namespace ledra::bench {

/// What the application finds in its scratch home.
struct ScratchHome
{
    explicit ScratchHome(const QString& folder)
    {
        qputenv("XDG_DATA_HOME", (folder + QStringLiteral("/data")).toUtf8());
        qputenv("XDG_CONFIG_HOME", (folder + QStringLiteral("/config")).toUtf8());
        LedraApp app({.console = console, .watchesFolders = false}); // the first start makes the profile
        invoices = *app.profileManager().subfolder(**app.profileManager().activeProfile(),
                                                   QStringLiteral("Invoices"), true);
    }

    /// Puts as many invoice files there as there are to be.
    void fill(int count) const
    {
        for (const Invoice& invoice : sampleInvoices(count)) {
            QFile file(invoices + u'/' + invoiceFileName(invoice));
            require(file.open(QIODevice::WriteOnly) && file.write(fileText(invoice)) > 0, "cannot write");
        }
    }

    CommandConsole console{CommandConsole::Verbosity::quiet};
    QString invoices;
};

} // namespace ledra::bench
