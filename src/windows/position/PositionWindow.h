#pragma once

#include "platform/store/StoredValues.h"
#include "platform/text/Export.h"

#include <QObject>
#include <QPointer>
#include <QRect>

class QWidget;
class ToviConfirmDlg;
class ToviData;

/// The position window of a panel: at most one, which follows the selection, and the place where it
/// comes up again, in the profile store from run to run.
class TOVI_EXPORT PositionWindow : public QObject
{
    Q_OBJECT

public:
    /// The section and entries of the profile store.
    static constexpr const char* ConfirmDialogSection_ = "ConfirmDialog";
    static constexpr const char* ConfirmDlgPosXEntry_ = "DialogPosX";
    static constexpr const char* ConfirmDlgPosYEntry_ = "DialogPosY";
    static constexpr const char* ConfirmDlgWEntry_ = "DialogWidth";
    static constexpr const char* ConfirmDlgHEntry_ = "DialogHeight";

    /// Reads the place.
    PositionWindow();
    /// Closes the window and writes the place.
    ~PositionWindow() override;

    /// Shows the window for \p data over \p owner, or brings it to the top.
    void Show(ToviData& data, QWidget* owner);
    /// Marks the selected photograph of \p data, if the window is open.
    void Follow(ToviData& data);
    void Close();

private:
    void EndConfirmDlg(const QRect& itsPlace);
    StoredSection::Entries Entries() const;

    QPointer<ToviConfirmDlg> dialog;
    /// As stored: all 0 when it never was.
    QRect place{0, 0, 0, 0};
    StoredSection stored;
};
