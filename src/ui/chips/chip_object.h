#pragma once

#include <QTextFormat>
#include <QTextObjectInterface>

namespace ledra {

/// Draws the tokens of a text as chips. A chip is one character of the document (U+FFFC), so that the cursor,
/// the selection and the keys treat it as a whole.
class ChipObject : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    static constexpr int objectType = QTextFormat::UserObject + 1;

    using QObject::QObject;

    /// What makes a character the chip of a token.
    static QTextCharFormat format(const QString& token, const QString& label);

    /// The token that a character's format stands for; empty for other formats.
    static QString token(const QTextFormat& format);

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
                    const QTextFormat& format) override;
};

} // namespace ledra
