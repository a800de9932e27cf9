#include "ui/jobs/question.h"

#include "ui/look/icons.h"

#include <QLabel>
#include <QPushButton>

namespace ledra {

namespace {

QMessageBox* newBox(QWidget& window, QMessageBox::Icon icon, const QString& title, const QString& text)
{
    auto* box = new QMessageBox(icon, title, title, QMessageBox::NoButton, &window);
    constexpr int iconSize = 40;
    const char* drawing = icon == QMessageBox::Warning ? "warning" : "information";
    box->setIconPixmap(lineIcon(drawing).pixmap(QSize(iconSize, iconSize), window.devicePixelRatioF()));
    if (auto* heading = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
        QFont font = heading->font();
        font.setBold(true);
        heading->setFont(font);
    }
    box->setTextFormat(Qt::PlainText); // names of files and records stand in it
    box->setInformativeText(text);
    box->setAttribute(Qt::WA_DeleteOnClose);
    return box;
}

void addDetails(QMessageBox& box, const QString& details)
{
    if (!details.isEmpty()) // else the box would offer to show nothing
        box.setDetailedText(details);
}

} // namespace

void ask(QWidget& window, const Question& question, const std::function<void(int answer)>& answered)
{
    QMessageBox* box = newBox(window, question.icon, question.title, question.text);
    addDetails(*box, question.details);
    QList<QAbstractButton*> buttons;
    for (const QString& answer : question.answers)
        buttons += box->addButton(answer, QMessageBox::AcceptRole);
    box->setDefaultButton(static_cast<QPushButton*>(buttons.front()));
    box->setEscapeButton(box->addButton(QMessageBox::Cancel));
    QObject::connect(box, &QMessageBox::finished, box, [box, buttons, answered] {
        if (const auto answer = buttons.indexOf(box->clickedButton()); answer >= 0)
            answered(static_cast<int>(answer));
    });
    box->open();
}

void alert(QWidget& window, const QString& title, const QString& text, const QString& details)
{
    QMessageBox* box = newBox(window, QMessageBox::Warning, title, text);
    box->setDefaultButton(box->addButton(QMessageBox::Ok));
    addDetails(*box, details);
    box->open();
}

} // namespace ledra
