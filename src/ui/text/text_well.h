#pragma once

#include <QPlainTextEdit>

namespace ledra {

/// Takes a text that is typed, pasted or dropped, also as a text file.
class TextWell : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit TextWell(QWidget* parent);

Q_SIGNALS:
    void refused(const QString& line); ///< a file that cannot be read

protected:
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
};

} // namespace ledra
