#pragma once

#include "app/ledra_app.h"
#include "app/smart_lists.h"

#include <QComboBox>
#include <QListWidget>

#include <vector>

namespace ledra {

/// The left of the window: which profile, and which of its lists, each with its count and its sums.
class SideBar : public QWidget
{
    Q_OBJECT

public:
    explicit SideBar(LedraApp& app, QWidget* parent = nullptr);

private:
    void showProfiles();
    void showLists();
    void pickList(int row);
    QString title(const SmartList& list) const;

    LedraApp& app_;
    QComboBox* profiles_;
    QListWidget* lists_;
    std::vector<SmartListContent> contents_;
    SmartList chosen_;
};

} // namespace ledra
