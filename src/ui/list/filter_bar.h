#pragma once

#include "app/filter_manager.h"
#include "app/ledra_app.h"

#include <QComboBox>
#include <QDateEdit>
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

private:
    void offerPeriods();
    void offerCurrencies();
    void periodPicked();
    void apply();

    LedraApp& app_;
    QComboBox* type_;
    QComboBox* status_;
    QComboBox* period_;
    QDateEdit* from_;
    QDateEdit* to_;
    QComboBox* currency_;
    QToolButton* reset_;
};

} // namespace ledra
