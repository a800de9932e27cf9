#pragma once

#include "app/ledra_app.h"
#include "app/smart_lists.h"

#include <QComboBox>
#include <QListWidget>
#include <QTimer>

#include <vector>

namespace ledra {

/// The left of the window: which profile, and which of its lists, each with its count and its sums.
class SideBar : public QWidget
{
    Q_OBJECT

public:
    explicit SideBar(LedraApp& app, QWidget* parent = nullptr);

    /// Goes to the list of all records.
    void showAll();

    void showReminders();

Q_SIGNALS:
    void recordsPicked();   ///< a list of invoices, quotes and cancellations; the filter is set
    void remindersPicked(); ///< the list of reminders

private:
    struct Entry
    {
        SmartListContent content;
        bool isReminders = false;
    };

    void showProfiles();
    void showLists();
    void showListsWhenPrepared();
    void addEntry(const Entry& entry);
    void pick(int row);
    int rowOfChosen() const;

    LedraApp& app_;
    QComboBox* profiles_;
    QListWidget* lists_;
    QTimer pause_; ///< until somebody who is typing has stopped
    SmartLists contents_;
    std::vector<Entry> entries_;
    SmartList chosen_;
    bool areRemindersChosen_ = false;
    bool countsReminders_ = false; ///< reading their files waits until the window stands
};

} // namespace ledra
