#pragma once

#include "store/invoice_manager.h"

#include <QStandardPaths>

namespace ledra::test {

inline QString supportFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/Ledra");
}

/// The stores over the folders of the environment, opened in the order in which the program opens them: as a
/// command does, or watching as a window does.
struct OpenedStores
{
    explicit OpenedStores(Console& console, bool watchesFolders = false)
        : writer(supportFolder(), device, console),
          trash(supportFolder() + QStringLiteral("/Trash")),
          context{supportFolder(), QStringLiteral("DE"), clock, ids, defaults, writer, trash,
                  console,         watchesFolders}
    {
        writer.recover();
        profiles = std::make_unique<ProfileManager>(context);
        invoices = std::make_unique<InvoiceManager>(context, *profiles);
    }

    /// The records as they stand, in the order of the list.
    std::vector<Invoice> view() const
    {
        std::vector<Invoice> view;
        for (const InvoicePtr& record : invoices->invoices())
            view.push_back(**record);
        return view;
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
