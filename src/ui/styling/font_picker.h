#pragma once

#include "render/web_font_manager.h"

#include <QFrame>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>

namespace ledra {

/// The families of the catalogue in two groups, each written in itself; typing searches them.
class FontList : public QFrame
{
    Q_OBJECT

public:
    FontList(const WebFontManager& fonts, const QString& current, QWidget* parent);

    QLineEdit& search() { return *search_; }
    QListWidget& list() { return *list_; }

Q_SIGNALS:
    void picked(const QString& family);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fill(const QString& wanted);
    void addGroup(const QString& title, bool isBundled, const QString& wanted);
    void take(const QListWidgetItem* item);

    const WebFontManager& fonts_;
    QString current_;
    QLineEdit* search_;
    QListWidget* list_;
};

/// Shows a font family in its own face and opens the list of all.
class FontPicker : public QPushButton
{
    Q_OBJECT

public:
    FontPicker(WebFontManager& fonts, QWidget* parent);

    void setFamily(const QString& family);

    /// The list as it is open, or null.
    FontList* openList() const { return list_; }

Q_SIGNALS:
    void picked(const QString& family);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void open();

    WebFontManager& fonts_;
    QString family_;
    QPointer<FontList> list_;
};

} // namespace ledra
