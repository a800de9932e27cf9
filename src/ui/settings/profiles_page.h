#pragma once

#include "ui/settings/profile_editing.h"

#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>

namespace ledra {

class SettingsWindow;

/// The profiles, and the five pages of the chosen one.
class ProfilesPage : public QWidget
{
    Q_OBJECT

public:
    explicit ProfilesPage(SettingsWindow& window);
    ~ProfilesPage() override;

private:
    QWidget* makeList();
    QWidget* makeTabs();
    void fill();
    void showChosen();
    void create();
    void startRenaming();
    void remove();
    void use();
    void tell(const QString& line);
    QUuid chosen() const;

    SettingsWindow& window_;
    ProfileEditing editing_;
    QListWidget* list_;
    QTabWidget* tabs_;
    QPushButton* use_;
    QPushButton* remove_;
    bool hasFailed_ = false; ///< it is still to be read
};

} // namespace ledra
