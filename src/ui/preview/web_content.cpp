#include "ui/preview/web_content.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QWebEngineView>

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

QAccessibleInterface* makeInterface(const QString& className, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    if (className != u"QQuickWidget" || !widget || !qobject_cast<QWebEngineView*>(widget->parentWidget()))
        return nullptr;
    return new WebContent(widget); // which the cache of interfaces owns
}

} // namespace

void giveWebContentsARole()
{
    QAccessible::installFactory(&makeInterface); // once, however often it is called
}

} // namespace ledra
