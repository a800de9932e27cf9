#pragma once

#include "app/text_extraction.h"
#include "ui/window_parts.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include <memory>

namespace ledra {

class ExtractedFieldsView;
class MainWindow;
class TextWell;

/// Makes an invoice of a text with the model on this computer: the text at the left, at the right the fields
/// that are found in it, as they arrive. They can be corrected before a draft is made of them, or before the
/// selected draft takes what it has not.
class TextToInvoice : public QDialog
{
    Q_OBJECT

public:
    explicit TextToInvoice(MainWindow& window);
    ~TextToInvoice() override;

    void setText(const QString& text);

    /// Ends the reading if one goes on, else closes.
    void reject() override;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* makeNotice();
    QWidget* makeText();
    QWidget* makeFields();
    QWidget* makeButtons();
    bool isReading() const { return isReading_; }
    void askAvailability();
    void showAvailability(const TextParserAvailability& found);
    void read();
    void cancelReading();
    void endReading(const TextParser::Extraction& extraction);
    void showTargets();
    void showState();
    void showUnused();
    InvoicePtr target() const; ///< null for a new invoice
    void accept() override;

    MainWindow& window_;
    const WindowParts& parts_;
    std::unique_ptr<TextParser> parser_; ///< that is asked whether there is a model, or reads
    bool isReading_ = false;
    bool isAvailable_ = true; ///< as far as is known
    QWidget* notice_;
    QLabel* unavailable_;
    TextWell* text_;
    QLabel* status_;
    QPushButton* read_;
    QPushButton* cancel_;
    ExtractedFieldsView* fields_;
    QLabel* unused_;
    QComboBox* targets_;
    QPushButton* accept_;
};

/// Opens it, or brings it to the front.
TextToInvoice& openTextToInvoice(MainWindow& window);

} // namespace ledra
