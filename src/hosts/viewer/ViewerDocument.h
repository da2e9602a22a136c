#pragma once

#include "delivery/ToviData.h"
#include "history/InspectionHistory.h"
#include "inspection/RecordFile.h"
#include "platform/host/CDocument.h"

#include <QObject>

#include <memory>
#include <vector>

class ToviPanel;
struct OpenedDelivery;

/// The open delivery, the panels that show it, and the record that its inspection is saved to.
class ViewerDocument : public QObject, public CDocument
{
    Q_OBJECT

public:
    ~ViewerDocument() override { Close(); }

    /// From now on \p panel is told of every update and holds the delivery while one is open.
    void AddPanel(ToviPanel* panel);

    /// Opens the delivery that \p path leads to (see OpenDelivery) in place of the one before,
    /// which stays when this fails. The user is asked what to go on with (see OpenHistory), where
    /// he hasn't named the record \p named. Returns what is wrong in a sentence, empty when nothing
    /// is.
    CString Open(const CString& path, std::optional<PhotoXMLType> family,
                 const CString& named = {});
    /// What has to be known of the delivery that was opened last; empty when there is nothing.
    const CString& Notice() const { return notice; }
    /// Opens the delivery whose first disc \p path leads to and gathers it from all of them
    /// (see MediaCombine). Returns as Open; what failed with the discs was told before, and the
    /// delivery that was open is closed then.
    CString OpenDiscs(const CString& path);
    void Close();
    /// Null while no delivery is open.
    ToviData* Data() const { return data.get(); }
    /// The folder that the user named, or that stands for the file that he did.
    const CString& Folder() const { return folder; }
    /// 工事名称, else the name of the folder.
    CString Title() const;

    /// Where the inspection was last saved to or taken up from; empty when neither.
    const CString& RecordPath() const { return record.Path(); }
    /// Saves the inspection to the file \p path, or to another that the user names when others have
    /// changed that one (see RecordFile). False when it isn't saved: \p problem then says what is
    /// wrong, unless the user has given up.
    bool SaveRecord(const CString& path, CString& problem);
    /// Takes up the inspection in the file \p path. False as in SaveRecord.
    bool LoadRecord(const CString& path, CString& problem);
    /// What was done to the labels and comments; null while no delivery is open.
    InspectionHistory* History() const { return history.get(); }
    /// What the windows were at when the inspection that goes on was left; empty for a new one.
    const SessionEntries& Session() const { return session; }
    /// Labels or comments were changed since they were last saved.
    bool HasUnsavedWork() const { return data && data->IsCheckStatusChanged(); }

    /// Builds the tree anew as the settings say and tells the panels that these changed.
    void ApplySettings(const ToviPhotoCtrlVisualSetting& setting);
    /// Takes over what other programs have saved of the settings since, and shows it. True when the
    /// tree or its order became another, so that the photographs on show have to follow.
    bool TakeOverSettings();

    void UpdateAllViews(CWnd* sender, int hint, CObject* object) override;

signals:
    /// Another delivery is open.
    void Opened();
    /// The delivery that is open will be closed now.
    void Closing();
    /// Any update of the document.
    void Updated();
    /// Labels and comments were to be changed where they may only be looked at.
    void EditRefused();

private:
    /// Shows \p opened, which is loaded, and begins the inspection that is kept in \p historyPath.
    void Take(OpenedDelivery opened, const CString& historyPath, const CString& named = {});

    std::vector<ToviPanel*> panels;
    std::unique_ptr<ToviData> data;
    std::unique_ptr<InspectionHistory> history;
    SessionEntries session;
    CString folder;
    CString notice;
    CString workTitle;
    RecordFile record;
};
