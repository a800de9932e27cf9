#include "ui/reminders/decimal_field.h"

#include "app/reader_language.h"
#include "model/amount_text.h"

#include <QSignalBlocker>

#include <cmath>

namespace ledra {

DecimalField::DecimalField(const QString& name, double most, QWidget* parent) : QDoubleSpinBox(parent)
{
    setAccessibleName(name);
    setLocale(documentLocale(readerLanguage()));
    setRange(0, most);
    setAlignment(Qt::AlignRight);
}

void DecimalField::show(double number)
{
    constexpr double half = 0.005; // of the last decimal that is shown
    if (std::abs(value() - number) < half)
        return;
    const QSignalBlocker quiet(this);
    setValue(number);
}

/// Otherwise "5.5" would be 55 where the point separates thousands.
QValidator::State DecimalField::validate(QString& input, int& place) const
{
    input.replace(locale().groupSeparator(), locale().decimalPoint());
    return QDoubleSpinBox::validate(input, place);
}

} // namespace ledra
