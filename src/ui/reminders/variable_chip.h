#pragma once

#include "model/reminder_variable.h"

#include <QTextObjectInterface>

namespace ledra {

/// Draws the variables of a text as chips. A chip is one character of the document (U+FFFC), so that the
/// cursor, the selection and the keys treat it as a whole.
class VariableChip : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    static constexpr int objectType = QTextFormat::UserObject + 1;

    using QObject::QObject;

    /// What makes a character the chip of a variable.
    static QTextCharFormat format(ReminderVariable variable);

    /// The variable that a character's format stands for; nothing for other formats.
    static std::optional<ReminderVariable> variable(const QTextFormat& format);

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
                    const QTextFormat& format) override;
};

/// "Invoice Number", in the language of the window.
QString variableLabel(ReminderVariable variable);

} // namespace ledra
