#pragma once

#include "app/ledra_app.h"

#include <QCheckBox>
#include <QDialog>

class QVBoxLayout;

namespace ledra {

/// Shows a package before it is installed: what it is, what it takes the place of and what it wants.
class InstallDialog : public QDialog
{
    Q_OBJECT

public:
    InstallDialog(const InspectedPackage& package, QWidget* parent);

    /// The hosts that the user lets the plugin talk to.
    QStringList confirmedHosts() const;

private:
    void addTexts(QVBoxLayout& column);
    void addWishes(QVBoxLayout& column);

    InspectedPackage package_;
    QCheckBox* mayTalk_ = nullptr; ///< only where it wants to
};

/// Asks whether a package is to be installed, and installs it then. Nothing is said when the user cancels.
struct Installation
{
    LedraApp& app;
    QWidget& over;
    QString path;
    std::function<void(const QString& error)> refused;
    std::function<void(const Plugin& plugin)> installed;
    std::function<void()> settled; ///< afterwards, whatever the user has chosen
};
void askToInstall(const Installation& installation);

} // namespace ledra
