#pragma once

#include <QMessageBox>

#include <functional>

namespace ledra {

/// Something that a user decides over a window.
struct Question
{
    QString title;
    QString text;
    QStringList answers; ///< the first is the usual one; "Cancel" comes by itself
    QMessageBox::Icon icon = QMessageBox::Question;
    QString details = {}; ///< shown on demand
};

/// Asks it. The window goes on meanwhile; nothing is called if the user cancels.
void ask(QWidget& window, const Question& question, const std::function<void(int answer)>& answered);

/// Says that something failed which the user waits for.
/// @param details what exactly, shown on demand
void alert(QWidget& window, const QString& title, const QString& text, const QString& details = {});

} // namespace ledra
