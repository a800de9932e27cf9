#include "ui/jobs/file_passage.h"

#include "ui/text/text_well.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTextEdit>

namespace ledra {

namespace {

/// Of a text field with several lines both the field and what it shows its text on are asked.
bool isTextField(const QObject* object)
{
    for (const QObject* each : std::initializer_list<const QObject*>{object, object->parent()}) {
        if (qobject_cast<const TextWell*>(each)) // which reads files
            return false;
        if (qobject_cast<const QTextEdit*>(each) || qobject_cast<const QPlainTextEdit*>(each))
            return true;
    }
    return qobject_cast<const QLineEdit*>(object) != nullptr;
}

} // namespace

FilePassage::FilePassage(QObject* parent) : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool FilePassage::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::DragEnter || !isTextField(watched))
        return false;
    if (!static_cast<QDragEnterEvent*>(event)->mimeData()->hasUrls())
        return false;
    event->ignore(); // what is behind the field is asked next
    return true;
}

} // namespace ledra
