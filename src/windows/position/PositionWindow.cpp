#include "windows/position/PositionWindow.h"

#include "delivery/ToviData.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/ToviPhoto.h"
#include "platform/host/HostServices.h"
#include "windows/position/DialogPlace.h"
#include "windows/position/ToviConfirmDlg.h"

#include <QGuiApplication>
#include <QScreen>

#include <utility>

namespace
{
QList<QRect> Screens()
{
    QList<QRect> screens;
    for (const QScreen* screen : QGuiApplication::screens()) screens << screen->availableGeometry();
    return screens;
}
} // namespace

PositionWindow::PositionWindow()
{
    const ProfileStore* const profile = GetHostServices().profile;
    if (profile == nullptr) return;
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    const std::pair<const char*, int*> entries[] = {{ConfirmDlgPosXEntry_, &x},
                                                    {ConfirmDlgPosYEntry_, &y},
                                                    {ConfirmDlgWEntry_, &width},
                                                    {ConfirmDlgHEntry_, &height}};
    for (const auto& [entry, value] : entries) {
        ReadStored(*profile, ConfirmDialogSection_, entry, *value);
    }
    place.setRect(x, y, width, height);
    stored.Note(Entries());
}

PositionWindow::~PositionWindow()
{
    Close();
    stored.Write(ConfirmDialogSection_, Entries());
}

void PositionWindow::Show(ToviData& data, QWidget* owner)
{
    const int type = data.GetVisualSetting().GetTreeType();
    if (dialog && dialog->IsTreeType(type)) {
        dialog->raise();
        return;
    }
    Close();
    dialog = new ToviConfirmDlg(owner);
    connect(dialog, &ToviConfirmDlg::Closed, this, &PositionWindow::EndConfirmDlg);
    const QRect shown = ShownPlace(place, Screens());
    dialog->resize(shown.size());
    dialog->move(shown.topLeft());
    dialog->show();
    // With its size the tree knows what is in sight already.
    dialog->SetTreeType(type);
    dialog->BuildTree(data);
}

void PositionWindow::Follow(ToviData& data)
{
    if (dialog) dialog->OnSelect(data, data.GetPhoto(data.GetSelectCurIndex()));
}

void PositionWindow::Close()
{
    if (dialog) dialog->close();
}

void PositionWindow::EndConfirmDlg(const QRect& itsPlace)
{
    place = itsPlace;
    dialog.clear();
}

StoredSection::Entries PositionWindow::Entries() const
{
    return {StoredNumber(ConfirmDlgPosXEntry_, place.x()),
            StoredNumber(ConfirmDlgPosYEntry_, place.y()),
            StoredNumber(ConfirmDlgWEntry_, place.width()),
            StoredNumber(ConfirmDlgHEntry_, place.height())};
}
