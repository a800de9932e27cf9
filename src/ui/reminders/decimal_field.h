#pragma once

#include <QDoubleSpinBox>

namespace ledra {

/// A number with two decimals, which may be typed with a point or a comma whatever the language.
class DecimalField : public QDoubleSpinBox
{
    Q_OBJECT

public:
    DecimalField(const QString& name, double most, QWidget* parent);

    /// Shows a number, unless that is what has been typed.
    void show(double number);
    using QWidget::show;

    QValidator::State validate(QString& input, int& place) const override;
};

} // namespace ledra
