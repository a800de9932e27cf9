#pragma once

#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <functional>
#include <vector>

namespace ledra {

class SettingsWindow;

/// Where the data lie, their backups, and what was not thrown away.
class DataPage : public QWidget
{
    Q_OBJECT

public:
    explicit DataPage(SettingsWindow& window);
};

/// The folder of all data.
class FolderTab : public QWidget
{
    Q_OBJECT

public:
    explicit FolderTab(SettingsWindow& window);

private:
    void refresh();
    void move();
    void reset();

    SettingsWindow& window_;
    QLabel* path_;
    QPushButton* reset_;
};

/// A list of files with buttons for the chosen one.
class FilesTab : public QWidget
{
    Q_OBJECT

public:
    FilesTab(SettingsWindow& window, const QString& name, const QStringList& columns, QWidget* parent);

protected:
    SettingsWindow& settings() const { return window_; }
    QTreeWidget& list() const { return *list_; }

    /// A button that is offered while something is chosen; handed the chosen row.
    void addButton(const QString& text, const std::function<void(int)>& run);

    /// Fills the list anew.
    virtual void refresh() = 0;
    void clear();
    void addRow(const QStringList& texts);
    void showEvent(QShowEvent* event) override;

    QVBoxLayout* layout_;
    QHBoxLayout* buttons_;

private:
    void offer();

    SettingsWindow& window_;
    QTreeWidget* list_;
    std::vector<QPushButton*> forChosen_;
};

} // namespace ledra
