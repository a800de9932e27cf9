#pragma once

#include "store/invoice_manager.h"

#include <QStandardPaths>

namespace ledra::test {

inline QString supportFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/Ledra");
}

/// The stores over the folders of the environment, opened in the order in which a command opens them.
struct OpenedStores
{
    explicit OpenedStores(Console& console)
        : writer(supportFolder(), device, console),
          trash(supportFolder() + QStringLiteral("/Trash")),
          context{supportFolder(), QStringLiteral("DE"), clock, ids, defaults, writer, trash, console, false}
    {
        writer.recover();
        profiles = std::make_unique<ProfileManager>(context);
        invoices = std::make_unique<InvoiceManager>(context, *profiles);
    }

    SystemClock clock;
    RandomIdSource ids;
    FileUserDefaults defaults;
    SystemFileDevice device;
    DataFileWriter writer;
    TrashBin trash;
    StoreContext context;
    std::unique_ptr<ProfileManager> profiles;
    std::unique_ptr<InvoiceManager> invoices;
};

} // namespace ledra::test
