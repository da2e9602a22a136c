#pragma once

#include "platform/text/Export.h"
#include "platform/text/Text.h"

#include <QAbstractButton>
#include <QIcon>

#include <vector>

/// A button with several states, each with a picture of its own. A click or the space bar leads to
/// the next state; a disabled one only shows its state, in full colour.
class TOVI_EXPORT GaluMultiStatusButton : public QAbstractButton
{
    Q_OBJECT

public:
    struct Status
    {
        QIcon image;
        /// Its name, for the tool tip and for those who can't see the picture.
        CString name;
    };

    /// Starts out in the first of \p all, which is not empty. \p imageSide is the side of the
    /// pictures in pixels of the layout.
    GaluMultiStatusButton(std::vector<Status> all, int imageSide, QWidget* parent = nullptr);

    int GetStatus() const { return status; }
    /// Shows the state \p newStatus, without a signal. One that doesn't exist is ignored.
    void SetStatus(int newStatus);
    /// Without a frame (\p isFlat), the button is filled with its background colour alone.
    void SetFlat(bool isFlat);
    /// The colour behind the picture.
    void SetBackColor(const QColor& color);

    QSize sizeHint() const override;

signals:
    /// The user has led the button to \p newStatus.
    void StatusChanged(int newStatus);

protected:
    void nextCheckState() override;
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<Status> statuses;
    int status = 0;
    bool flat = false;
};
