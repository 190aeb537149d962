#pragma once

#include "widgets/support/PlainText.h"

#include <QDialog>
#include <QVBoxLayout>

namespace ko {

/// Shown until a recording has ended; cannot be closed by the user.
class WaitingBox : public QDialog {
public:
    WaitingBox(const QString& title, const QString& text, QWidget* parent) : QDialog(parent)
    {
        setWindowTitle(title);
        auto* const column = new QVBoxLayout(this);
        column->addWidget(new PlainLabel(text, this));
    }
    void reject() override {}
};

} // namespace ko
