#pragma once

#include "ui/assistant/first_start_steps.h"
#include "ui/preview/document_preview.h"

#include <QButtonGroup>

namespace ledra {

/// The choice of a look, with a small page beside it that shows an example invoice as it would be.
class LookStep : public QWidget
{
    Q_OBJECT

public:
    LookStep(const FirstStartSetting& setting, QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeChoices();
    QWidget* makeDetails();
    void showState();
    void showExample();

    const WindowParts& parts_;
    FirstStartDraft& draft_;
    QButtonGroup* looks_;
    DocumentPreview* preview_ = nullptr;
    bool isShown_ = false; ///< whether the preview shows the example at all
};

} // namespace ledra
