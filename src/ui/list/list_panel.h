#pragma once

#include "app/ledra_app.h"
#include "ui/list/invoice_list_view.h"

#include <QLineEdit>
#include <QStackedWidget>
#include <QTimer>
#include <QWidget>

namespace ledra {

class EmptyState;
class FilterBar;

/// The middle of the window: search, filter, and the list or what to do where it is empty.
class ListPanel : public QWidget
{
    Q_OBJECT

public:
    explicit ListPanel(LedraApp& app, QWidget* parent = nullptr);

    InvoiceListView& list() { return *list_; }
    InvoiceTableModel& model() { return *model_; }

    void startSearch(); ///< shows the search field and goes there
    void toggleSearchBar();
    void toggleFilterBar();
    bool isSearchShown() const { return !search_->isHidden(); }

Q_SIGNALS:
    void newInvoiceWanted();

private:
    void setUpSearch();
    void setUpEmptyState();
    void searchWhenPrepared();
    void showListOrHint();
    void clearSearchAndFilter();

    LedraApp& app_;
    InvoiceTableModel* model_;
    QLineEdit* search_;
    QTimer prepare_; ///< reads the records for the search, a little at a time
    FilterBar* filter_;
    InvoiceListView* list_;
    EmptyState* empty_;
    QStackedWidget* stack_;
};

} // namespace ledra
