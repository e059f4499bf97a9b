#pragma once

#include "framework/GNumberEdit.h"

/// An integer, edited by a slider and a spin box beside it.
class GIntEdit : public GNumberEdit
{
    Q_OBJECT

public:
    explicit GIntEdit(QWidget *parent = nullptr);

    int value() const;

public Q_SLOTS:
    /// Sends valueChanged() when it is another value; clamped to the range.
    void setValue(int value);

Q_SIGNALS:
    void valueChanged(int value);

protected:
    void sendNumber() override;
};
