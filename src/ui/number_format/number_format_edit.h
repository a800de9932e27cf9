#pragma once

#include "ui/chips/chip_line_edit.h"

#include <QLabel>
#include <QUuid>
#include <QWidget>

namespace ledra {

struct NumberFormatChipTypeDefinition;

/// A number format: a line in which its variables are chips, buttons that insert them, what is wrong with the
/// format, and a sample of what it makes.
class NumberFormatEdit : public QWidget
{
    Q_OBJECT

public:
    explicit NumberFormatEdit(QWidget* parent);

    /// The format as records hold it: "{YYYY}-{NNN}".
    QString format() const { return line_->source(); }

    /// @param owner whose format it is; the way back in the line never leads to another one's
    void setFormat(const QString& format, const QUuid& owner);

    void setSample(const QString& text);
    void setProblem(const QString& text); ///< empty for none

    ChipLineEdit& line() { return *line_; }

Q_SIGNALS:
    void edited(bool isTyping);

private:
    QWidget* makeTexts();
    QWidget* makeButton(const NumberFormatChipTypeDefinition& type);

    ChipLineEdit* line_;
    QLabel* problem_;
    QLabel* sample_;
    QUuid owner_;
};

} // namespace ledra
