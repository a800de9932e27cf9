#pragma once

#include "ui/look/empty_state.h"

namespace ledra {

/// What the viewer shows without a document: a field with a dashed edge that files are dropped on.
class DropZone : public EmptyState
{
    Q_OBJECT

public:
    explicit DropZone(QWidget* parent = nullptr);

    /// Whether files are held over it.
    void setMarked(bool isMarked);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool isMarked_ = false;
};

} // namespace ledra
