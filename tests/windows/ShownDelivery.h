#pragma once

#include "platform/controls/WindowHandle.h"
#include "platform/text/QtText.h"
#include "support/Labels.h"
#include "support/OpenedSample.h"
#include "windows/cell/ToviCommentWindow.h"
#include "windows/cell/ToviNamePlate.h"
#include "windows/page/ToviMpiPanel.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <functional>

/// A host with panels, to which it forwards what is broadcast.
class PanelHost : public CDocument
{
public:
    void UpdateAllViews(CWnd* sender, int hint, CObject* object) override
    {
        hints.push_back(hint);
        for (ToviMpiPanel* panel : panels) {
            if (AsWindow(panel) == sender) continue;
            panel->OnUpdate(sender, static_cast<ToviData::UpdateHint>(hint), object);
        }
    }

    std::vector<ToviMpiPanel*> panels;
    std::vector<int> hints;
};

/// A delivery on show in a panel.
struct ShownDelivery
{
    using Setting = ToviPhotoCtrlVisualSetting;

    ShownDelivery(const DeliveryBuilder& delivery, Setting::DivideType mode)
    {
        delivery.Write(temp.Path());
        Open(temp.Path("PHOTO"), mode);
    }
    ShownDelivery(int photos, Setting::DivideType mode)
        : ShownDelivery(DeliveryBuilder({.photos = photos, .drawings = 0, .images = false}), mode)
    {}
    /// One that stands in \p folder.
    ShownDelivery(const CString& folder, Setting::DivideType mode) { Open(folder, mode); }
    ~ShownDelivery() { panel.Detach(); }

    void Open(const CString& folder, Setting::DivideType mode)
    {
        panel.Detach();
        ToviEnouDataFactory factory;
        data.reset(factory.Create(&host, folder.c_str(), PhotoXMLMlit, nullptr, nullptr));
        data->Load();
        data->BuildTreeNode(Setting::TreeWorkTypeFull);
        host.panels = {&panel};
        window.resize(1000, 700);
        panel.Create(&window, 1);
        panel.resize(window.size());
        panel.Attach(data.get());
        window.show();
        window.activateWindow();
        SetMode(mode);
        host.UpdateAllViews(nullptr, ToviData::HintInitialize, nullptr);
        panel.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void Set(const std::function<void(Setting&)>& change)
    {
        Setting setting = data->GetVisualSetting();
        change(setting);
        data->SetVisualSetting(setting, false);
        host.UpdateAllViews(nullptr, ToviData::HintSettingsChanged, nullptr);
    }

    void SetMode(Setting::DivideType mode)
    {
        Set([mode](Setting& setting) { setting.SetDivType(mode); });
    }

    /// Makes the first \p count photographs the current array.
    void ShowFirst(int count)
    {
        for (int index = 0; index < data->GetTotalCountPhoto(); ++index) {
            Review(*data, index,
                   [=](PhotoReview& review) { review.labels.set(LabelFree, index < count); });
        }
        data->SetSelected(static_cast<int>(LabelFree));
    }

    void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        // A dialog may have been in front.
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }

    QList<ToviSpiCtrl*> Cells() { return panel.findChildren<ToviSpiCtrl*>(); }
    /// What the cells show.
    std::vector<int> Positions()
    {
        std::vector<int> positions;
        for (const ToviSpiCtrl* cell : Cells()) positions.push_back(cell->GetPhotoIndex());
        return positions;
    }
    ToviNamePlate& Plate(int cell) { return *Cells()[cell]->findChild<ToviNamePlate*>(); }
    void Click(int cell, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(&Plate(cell), button, {}, QPoint(10, 10));
    }
    int Selected() { return data->GetSelectCurIndex(); }
    /// How many photographs of the current array take themselves for selected.
    int CountSelected()
    {
        int count = 0;
        for (int index = 0; index < data->GetCurrentPhotoCount(); ++index)
            count += Photo(index).IsSelected();
        return count;
    }
    ToviPhoto& Photo(int position) { return *data->GetPhoto(position); }
    /// The comment strips that are to be seen, with their whole texts.
    std::vector<CString> Strips()
    {
        std::vector<CString> texts;
        for (const auto* strip : panel.findChildren<ToviCommentWindow*>()) {
            if (strip->isVisible()) texts.push_back(FromQtText(strip->accessibleDescription()));
        }
        return texts;
    }

    /// Answers the next comment dialog with \p text; null: gives it up.
    void AnswerComment(const char* text)
    {
        QTimer::singleShot(0, &panel, [text] {
            QWidget* const dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            auto* const edit = dialog->findChild<QPlainTextEdit*>();
            if (text != nullptr) edit->setPlainText(QtText(text));
            QTest::keyClick(edit, text != nullptr ? Qt::Key_Return : Qt::Key_Escape);
        });
    }

    TestHost services;
    TempFolder temp;
    PanelHost host;
    std::unique_ptr<ToviData> data;
    QWidget window;
    ToviMpiPanel panel{&host};
    QSignalSpy pagesTold{&panel, &ToviMpiPanel::PageChanged};
    QSignalSpy modesTold{&panel, &ToviMpiPanel::ModeChanged};
};
