#pragma once

#include "platform/text/Export.h"

#include <QKeySequence>
#include <QLineEdit>

/// A field that takes the key that is pressed in it. Tab, Enter and Esc keep what they do in a
/// dialog.
class TOVI_EXPORT KeyEdit : public QLineEdit
{
    Q_OBJECT

public:
    KeyEdit();

    /// Empty until a key was pressed.
    const QKeySequence& Key() const { return key; }
    void Clear();

signals:
    void KeyTaken();

protected:
    bool event(QEvent* event) override;

private:
    QKeySequence key;
};
