#pragma once

#include "ui/styling/styling_editing.h"

#include <QScrollArea>
#include <QWidget>

namespace ledra {

/// The look of the documents as an inspector beside the preview: what is chosen is seen there at once.
class StylingPanel : public QWidget
{
    Q_OBJECT

public:
    explicit StylingPanel(const WindowParts& parts, QWidget* parent = nullptr);
    ~StylingPanel() override;

    /// Goes to the first field.
    void start();

Q_SIGNALS:
    void closeWanted();

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeHeader();
    void addSections();

    const WindowParts& parts_;
    StylingEditing editing_;
    QScrollArea* scroll_;
    QWidget* form_ = nullptr;
};

} // namespace ledra
