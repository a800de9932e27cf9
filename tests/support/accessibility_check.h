#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QDebug>
#include <QLabel>
#include <QSet>
#include <QStringList>
#include <QWidget>

namespace ledra::test {

/// Looks at what can be seen of a window as somebody does who hears it, or who has only a keyboard.
class AccessibilityCheck
{
public:
    void look(QWidget& window, const QString& state)
    {
        state_ = state;
        QWidget* before = nullptr;
        for (QWidget* each = window.nextInFocusChain(); each != &window; each = each->nextInFocusChain()) {
            if (!each->isVisible() || !window.isAncestorOf(each) || each->window() != &window)
                continue;
            if (!isStop(*each))
                continue;
            ++stops;
            checkName(*each);
            if (before && isBackwards(*before, *each))
                find(*each, QStringLiteral("comes after %1 in the tab order").arg(nameOf(*before)));
            before = each;
        }
        for (const QWidget* each : window.findChildren<QWidget*>()) {
            if (each->isVisible() && each->window() == &window)
                checkText(*each);
        }
    }

    QStringList findings;
    int stops = 0; ///< at which Tab has halted

private:
    static bool isStop(const QWidget& widget)
    {
        return widget.focusPolicy() & Qt::TabFocus && !widget.focusProxy() && widget.isEnabled();
    }

    static QString nameOf(QWidget& widget)
    {
        const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&widget);
        return interface ? interface->text(QAccessible::Name) : QString();
    }

    void checkName(QWidget& widget)
    {
        const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&widget);
        if (!interface || interface->text(QAccessible::Name).trimmed().isEmpty())
            find(widget, QStringLiteral("has no name"));
        if (interface &&
            (interface->role() == QAccessible::Client || interface->role() == QAccessible::NoRole))
            find(widget, QStringLiteral("has no role"));
    }

    /// Texts that wrap need their height, the others their width.
    void checkText(const QWidget& widget)
    {
        const auto* label = qobject_cast<const QLabel*>(&widget);
        const auto* button = qobject_cast<const QAbstractButton*>(&widget);
        const QString text = label ? label->text() : button ? button->text() : QString();
        if (text.isEmpty() || widget.property("elides").toBool() || isScrolledAway(widget))
            return;
        constexpr int tolerance = 2; // pixels
        if (label && label->wordWrap()) {
            if (label->heightForWidth(label->width()) > label->height() + tolerance)
                find(widget, QStringLiteral("is too low for its text “%1”: %2 of %3 pixels")
                                 .arg(text)
                                 .arg(label->height())
                                 .arg(label->heightForWidth(label->width())));
        } else if (widget.sizeHint().width() > widget.width() + tolerance) {
            find(widget, QStringLiteral("cuts its text “%1” off: %2 of %3 pixels")
                             .arg(text)
                             .arg(widget.width())
                             .arg(widget.sizeHint().width()));
        }
    }

    static bool isScrolledAway(const QWidget& widget)
    {
        return widget.objectName().startsWith(u"qt_") || widget.width() == 0;
    }

    /// Whether the second stands above the first, or before it in the same row, where the layout has them
    /// beneath one another. Compared are the boxes in which they stand side by side.
    static bool isBackwards(const QWidget& first, const QWidget& second)
    {
        const QWidget* common = first.parentWidget();
        while (common && !common->isAncestorOf(&second))
            common = common->parentWidget();
        if (!common)
            return false;
        const QRect a = boxIn(*common, first);
        const QRect b = boxIn(*common, second);
        const bool isAbove = b.bottom() < a.top() && b.left() < a.right();
        const bool isInRow = b.top() < a.bottom() && a.top() < b.bottom();
        return isAbove || (isInRow && b.right() < a.left());
    }

    static QRect boxIn(const QWidget& common, const QWidget& widget)
    {
        const QWidget* child = &widget;
        while (child->parentWidget() != &common)
            child = child->parentWidget();
        return child->geometry();
    }

    void find(const QWidget& widget, const QString& what)
    {
        QStringList place;
        for (const QWidget* each = &widget; each && place.size() < 4; each = each->parentWidget())
            place += QString::fromLatin1(each->metaObject()->className()).remove(QStringLiteral("ledra::")) +
                     (each->objectName().isEmpty() ? QString() : u'#' + each->objectName());
        const QString finding = place.join(QStringLiteral(" in ")) + u' ' + what;
        if (known_.contains(finding))
            return; // it is there in another state, too
        known_.insert(finding);
        findings += state_ + QStringLiteral(": ") + finding;
        qInfo().noquote() << findings.back(); // the test's own message is cut where they are many
    }

    QString state_;
    QSet<QString> known_;
};

} // namespace ledra::test
