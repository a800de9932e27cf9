#pragma once

#include <QCheckBox>
#include <QPushButton>
#include <QStackedWidget>
#include <QTreeWidget>

namespace ledra {

class PluginDetail;
class PluginManager;
class SettingsWindow;
struct Plugin;

/// The plugins that are installed, and what can be done with them. A package that is dropped on the page is
/// installed once the user has seen what it is.
class PluginsPage : public QWidget
{
    Q_OBJECT

public:
    explicit PluginsPage(SettingsWindow& window);

    void choose(const QString& id);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    QWidget* makeEmpty();
    QWidget* makeList();
    QLayout* makeButtons();
    QLayout* makeSwitches();
    void connectManager();
    void fill();
    void addRow(const Plugin& plugin);
    void showWarning(const QString& id);
    void showChosen();
    void setEnabled(const QTreeWidgetItem& item);
    QString chosen() const;

    void chooseFolder();
    void chooseArchive();
    void install(const QString& path);
    void installPending();
    void ask(const QString& path);
    void remove();
    void reveal();
    void updateChosen();
    void updateAll();
    void update(const QStringList& ids);
    void tellUpdates();
    PluginManager& plugins() const;

    SettingsWindow& window_;
    QStackedWidget* pages_;
    QTreeWidget* list_;
    PluginDetail* detail_;
    QPushButton* update_;
    QPushButton* updateAll_;
    QPushButton* reveal_;
    QPushButton* remove_;
    QCheckBox* checks_;
    bool isAsking_ = false;
    int openUpdates_ = 0;
    QStringList updated_; ///< in the updates that are under way
    bool hasFailed_ = false;
};

} // namespace ledra
