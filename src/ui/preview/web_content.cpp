#include "ui/preview/web_content.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace ledra {

namespace {

/// The widget with the focus; below it lies what the page tells, which the view knows.
class WebContent final : public QAccessibleWidget
{
public:
    explicit WebContent(QWidget* content) : QAccessibleWidget(content, QAccessible::Document) {}

    int childCount() const override { return page() ? 1 : 0; }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        return child && child == page() ? 0 : -1;
    }
    QAccessibleInterface* child(int index) const override { return index == 0 ? page() : nullptr; }
    QAccessibleInterface* focusChild() const override { return widget()->hasFocus() ? page() : nullptr; }

private:
    QAccessibleInterface* page() const
    {
        const QAccessibleInterface* view = QAccessible::queryAccessibleInterface(widget()->parentWidget());
        return view && view->childCount() > 0 ? view->child(0) : nullptr;
    }
};

} // namespace

void describeWebContent(QWidget& content, const QString& name)
{
    content.setAccessibleName(name);
    QAccessibleInterface* before = QAccessible::queryAccessibleInterface(&content);
    if (before && before->role() == QAccessible::Document)
        return;
    if (before) // the engine's, which it made for the widget itself: no factory is asked
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(before));
    QAccessible::registerAccessibleInterface(new WebContent(&content)); // the cache of interfaces owns it
}

} // namespace ledra
