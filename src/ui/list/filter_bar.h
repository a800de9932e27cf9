#pragma once

#include "app/filter_manager.h"
#include "app/ledra_app.h"
#include "ui/look/day_line.h"

#include <QComboBox>
#include <QGridLayout>
#include <QToolButton>
#include <QWidget>

namespace ledra {

/// Narrows the list in force down: by type, status, period and currency.
class FilterBar : public QWidget
{
    Q_OBJECT

public:
    explicit FilterBar(LedraApp& app, QWidget* parent = nullptr);

    void reset();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange();
    void offerPeriods();
    void offerCurrencies();
    void periodPicked();
    void apply();

    LedraApp& app_;
    QGridLayout* grid_; ///< of what is shown, in as many columns as there is room for
    int arranged_ = 0;  ///< that many columns
    QComboBox* type_;
    QComboBox* status_;
    QComboBox* period_;
    DayLine* from_;
    DayLine* to_;
    QComboBox* currency_;
    QToolButton* reset_;
};

} // namespace ledra
