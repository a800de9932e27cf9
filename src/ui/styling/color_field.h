#pragma once

#include <QLineEdit>
#include <QToolButton>
#include <QWidget>

namespace ledra {

/// A colour: a swatch that opens the colour dialog, and its six digits.
class ColorField : public QWidget
{
    Q_OBJECT

public:
    explicit ColorField(const QString& label, QWidget* parent = nullptr);
    ~ColorField() override;

    /// Shows a colour as stylings hold it. What is being typed stays.
    void setColor(const QString& text);

Q_SIGNALS:
    void picked(const QString& digits); ///< may come many times while somebody drags in the dialog
    void refused(const QString& line);

private:
    void openDialog();
    void take(const QString& text);
    void endTyping();
    void showSwatch();

    QString color_;
    QToolButton* swatch_;
    QLineEdit* digits_;
};

} // namespace ledra
