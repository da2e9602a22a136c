#pragma once

#include "delivery/ReadingCounts.h"
#include "items/ToviItem.h"
#include "items/TreeType.h"
#include "kinds/PhotoXMLType.h"
#include "photos/PhotoHome.h"
#include "photos/ToviNode.h"
#include "photos/ToviPhotoRef.h"

#include <functional>
#include <memory>
#include <vector>

class CDocument;
class CWnd;
class DeliveryFiles;
class FolderClaim;
class LabelEdits;
class RecordOrigin;
class TamperCheck;
class ToviExtractionDlg;
class ToviItemManager;
class ToviItemShowSettings;
class ToviLabelManager;
class ToviPhoto;
class ToviPhotoArray;
class ToviPhotoCtrlVisualSetting;
class ToviSortCondition;
enum CancelExt : int;
enum class CheckStatusOutcome;
struct LabelEdit;
struct PhotoReview;

/// One open delivery: its photographs, the items that belong to the whole, the classification tree
/// (whose root it is itself) and the selection.
///
/// The actual array owns every photograph in the order of PHOTO.XML and never changes after the
/// load; a photo index is an index into it. The current array is what the panels show now: a list
/// of photo indexes; a position is an index into that.
class TOVI_EXPORT ToviData : public ToviNode, public PhotoHome
{
public:
    /// What travels through CDocument::UpdateAllViews after a change. Panels dispatch on the
    /// values.
    enum UpdateHint
    {
        HintInitialize = 0,
        HintRefresh1 = 1,
        HintSelectionChanged = 2,
        HintPageReset = 3,
        HintCurrentArrayChanged = 4,
        HintPhotoInfoChanged = 5,
        HintLabelsChanged = 6,
        HintSettingsChanged = 7,
        HintRefresh8 = 8,
        HintDetach = 9,
        HintPhotoSelected = 10,
        HintRefresh11 = 11
    };

    /// A document without a host and without definitions.
    ToviData();
    /// \p host may be null: nothing is broadcast then. \p path is the folder of PHOTO.XML, from
    /// which the item definitions of its kind are found. A failure leaves GetErrorType() set and a
    /// document without definitions.
    ToviData(CDocument* host, const char* path, PhotoXMLType type);
    ToviData(const ToviData&) = delete;
    ToviData& operator=(const ToviData&) = delete;
    ~ToviData() override;

    const char* RootPath() const override { return rootPath.c_str(); }
    /// Stores \p path so that it ends in a path separator.
    virtual void RootPath(const char* path);
    /// The folders of PHOTO.XML from which the delivery was read so far, the present one last.
    CStringArray DeliveryRoots() const;
    /// Keeps \p claim, on the folder that the delivery is read from, as long as the document lives,
    /// or until another one takes its place.
    void HoldFolder(std::shared_ptr<const FolderClaim> claim) { folderClaim = std::move(claim); }
    bool IsFileOfDelivery(const CString& path) const override;
    /// What may be read for the photographs, for threads that do so: another object after each
    /// change of folder.
    std::shared_ptr<const DeliveryFiles> GetFiles();

    ToviItemDef* GetItemDef() override;
    ToviPhotoArray* GetPhotoDataArray();
    /// The items that belong to the delivery as a whole.
    ToviItemArray* GetMngItemPhoto() { return &mngItems; }
    /// Makes the paths of every photograph anew.
    void MakePath();
    const PhotoPathItems& GetPathItems() const override;
    bool IsStandAlone() const override { return standAlone; }
    void SetStandAlone(bool alone);
    /// The full path of a copy of the delivery's index file that a browser shows as a page. It
    /// stands in the work area (see loading/IndexCopy.h); the first call makes it. Empty when there
    /// is no index file of a known kind or no copy can be made; each further call tries again.
    CString GetIndexPath();
    PhotoXMLReadErr GetErrorType() const { return errorType; }
    void SetErrorType(PhotoXMLReadErr error) { errorType = error; }

    int GetTotalCountPhoto() const;
    const ReadingCounts& GetReadingCounts() const { return readingCounts; }
    void SetReadingCounts(const ReadingCounts& counts) { readingCounts = counts; }
    int GetCurrentPhotoCount() const { return curPhotos.GetSize(); }
    /// True when the current array is empty.
    virtual bool IsPhotoArrayEmpty() const { return curPhotos.IsEmpty(); }
    /// The photograph at a current position; null outside.
    ToviPhoto* GetPhoto(int pos) const;
    /// The photograph at a photo index; null outside.
    ToviPhoto* GetPhotoActualPhotoArray(int index) const;
    /// The photo index at a current position: -1 when the current array is empty; a position
    /// outside of it throws InvalidArgument.
    int GetPhotoIndex(int pos) const;
    /// The same, but -1 for every position outside.
    int GetIndexPhotoArray(int pos) const;
    const ToviPhotoRef& GetCurrentArray() const { return curPhotos; }
    unsigned long NodeCount() const { return DescendantCount(); }
    /// Appends each value of the item titled \p item that is not in \p values yet, in file order,
    /// without the empty ones. True when an empty value was met; false too when no such item is
    /// defined.
    bool GetPhotoItemValue(const CString& item, CStringArray& values);

    /// For documents that keep texts apart from their photographs; this one doesn't.
    virtual void AllTextLoad() {}
    virtual void AllTextUnLoad() {}

    virtual ToviLabelManager* GetLabelManager();
    /// Replaces \p out by the photo indexes of all photographs with this label, in the order of
    /// PHOTO.XML, and returns their number.
    int CollectionLabel(unsigned long label, ToviPhotoRef& out) const;
    int CountLabel(unsigned long label) const;
    /// What all changes of labels and comments go through.
    LabelEdits& GetLabelEdits();
    const LabelEdits& GetLabelEdits() const;
    /// What an inspector has said so far.
    std::vector<PhotoReview> GetReviews() const;
    /// 1 when any photograph has any label, else 0. A comment alone doesn't count.
    int IsLabeled() const;
    /// Labels or comments differ from what was last saved.
    bool IsCheckStatusChanged() const { return checkStatusChanged; }
    void SetCheckStatusChanged(bool changed) { checkStatusChanged = changed; }
    /// A photograph of the current array has a comment, as far as UpdateHasComment has seen.
    bool HasComment() const { return hasComment; }
    /// Looks for comments in the current array; an empty one leaves the answer as it was.
    void UpdateHasComment();
    /// Tells all views but \p sender that labels or comments changed: those that \p edit tells of,
    /// or any where it is null.
    void UpdatePhotoInf(CWnd* sender, LabelEdit* edit = nullptr);

    /// Lets the user choose a correction of the labels of all photographs on show
    /// (付箋の一括訂正・削除), confirm it, and runs it. False when the user refuses or there was
    /// nothing to correct.
    bool AllLabelCorrection();
    /// Takes all labels and comments off the photographs of the current array, as a batch.
    virtual void AllRemoveLabel();

    /// Writes the comments and labels of all photographs to the inspection record \p path. False
    /// leaves the file as it was, with the reason (RecordFailure of review/RecordTags.h) in \p
    /// result; an empty path gives no reason. \p note may be null.
    virtual bool SaveExamination(const char* path, const char* note, int* result);
    /// Reads such a record back: the n-th entry belongs to the n-th photograph. One that says that
    /// it is another delivery's is refused. False changes nothing, with the reason as in
    /// SaveExamination.
    virtual bool LoadExamination(const char* path, int* result);
    enum RecordsTaken
    {
        RecordsOfThisDelivery,
        /// For whoever was told that the record is another delivery's, and wants it all the same.
        RecordsOfAnyDelivery
    };
    bool LoadExamination(const char* path, int* result, RecordsTaken taken);
    /// What tells a record of this delivery from those of others.
    RecordOrigin GetRecordOrigin();
    /// Writes the variant of the record that names each photograph's file.
    void ReturnExam(const char* path);
    /// The same, with an outcome as in SaveExamination.
    bool ReturnExam(const char* path, int* result);

    /// Loads the settings of the user, as against the photographs, and makes the list of items that
    /// the information lists may show. Always true. From here on what is set is saved, too.
    virtual bool Load();
    /// Takes over what other programs have saved of the settings since. False when there is nothing
    /// new. As in SetVisualSetting nothing is broadcast, and tree and current array stay as they
    /// are.
    bool TakeOverSettings();
    ToviPhotoCtrlVisualSetting& GetVisualSetting();
    const ToviPhotoCtrlVisualSetting& GetVisualSetting() const;
    /// Takes over all of \p setting but its items to show, which are those of the item manager.
    /// Where it changes the tamper check, or with \p force, all results of that are forgotten.
    void SetVisualSetting(const ToviPhotoCtrlVisualSetting& setting, bool force);
    virtual ToviItemManager* GetItemManager();
    /// Takes over \p labels and, with \p withItems, \p items.
    virtual void SetManager(const ToviLabelManager& labels, const ToviItemManager& items,
                            bool withItems);
    /// Replaces the item manager by one without items.
    virtual void Initialize();

    /// Has the verifiers judge the file of \p photo as the visual setting says, and notes the
    /// result on it. Without the check in the setting the result stays as it is.
    void CheckEditJPEG(ToviPhoto* photo);
    /// What checks them, for threads that do so: another object once the setting has changed. Null
    /// without the check in the setting.
    std::shared_ptr<TamperCheck> GetTamperCheck() const;
    /// Forgets the results of all photographs.
    void Initialize_CheckEditJPEG();

    /// Lets the user save the check report of the current array (see
    /// reports/ToviCheckStatusFileOut.h). \p caption is the title of what is shown meanwhile. True
    /// when it was written. \p place, if not null, is the path without an ending that is proposed,
    /// and afterwards that of the output, or empty when none was chosen.
    bool FileOutCheckStatus(const CString& caption, CString* place = nullptr);
    /// The same into the file \p path, without a question or message.
    CheckStatusOutcome FileOutCheckStatus(const CString& caption, const CString& path);

    const ToviSortCondition& GetSortCondition() const;
    /// Takes over \p condition without sorting. One that doesn't sort is ascending.
    void SetSortCondition(const ToviSortCondition& condition);
    /// Sorts the current array as the condition says, whether or not it says to sort.
    virtual void Sort();

    /// Sets the window that holds the conditions of the extraction. It isn't owned; null for none.
    void SetExtractionData(ToviExtractionDlg* window) { extraction = window; }
    /// Switches extraction on: from now on the photographs of each node that is selected are
    /// narrowed to those that meet the conditions, beginning with the selected node.
    void ExecExtraction();
    /// Switches it off and shows the whole selected node.
    void CancelExtraction();
    /// Switches it off and tells its window, if it is on. The current array stays as it is.
    void CancelExtraction(CancelExt value);
    /// Narrows the current array to the photographs that meet all conditions of the extraction
    /// window. A cancel by the user switches extraction off and leaves the array as it is.
    void ExecExtractionAND();
    /// The same with the photographs that meet any condition.
    void ExecExtractionOR();
    /// From now on the photographs of each node or label that is selected are narrowed to those in
    /// which \p text is found (see extraction/TextSearch.h), too; all stay for a blank one. The
    /// current array stays as it is.
    void SetSearchText(const CString& text);
    /// What is looked for; empty when nothing is.
    const CString& GetSearchText() const;
    /// Empties the current array and, with \p update, tells the views. The first argument isn't
    /// read.
    void SetCurPhotoArray(bool ignored, bool update);

    /// Makes the tree anew. The selected node becomes the one that holds the selected photograph,
    /// or the root, and the current array follows. Node pointers from before are stale. Nothing is
    /// broadcast.
    void BuildTreeNode(TreeType type);

    /// Selects \p node and fills the current array from the tree beneath it. The node that is
    /// selected already is left alone unless \p force. Returns the node selected before.
    virtual ToviNode* SetSelected(ToviNode* node, bool force);
    /// Selects the node of the selected photograph, or the root with its first photograph. Throws
    /// InvalidArgument when the root has none.
    void SetSelected();
    /// Makes the photographs with \p label, whatever their node, the current array; none for a
    /// negative one.
    virtual void SetSelected(int label);
    /// The selected label, or -1.
    int GetSelectedIndex() const { return selectedLabel; }
    ToviNode* GetSelectedNode() const { return selectedNode; }
    /// Moves the selection to the photograph \p index; false for a negative index, InvalidArgument
    /// for one behind the last.
    bool PhotoSelectSetting(int index);
    /// The selected photograph, or null.
    ToviPhoto* GetSelectedPhoto() const { return GetPhotoActualPhotoArray(selectedPhoto); }
    /// The current position of the selected photograph, or -1.
    int GetSelectCurIndex() const;
    /// Sets \p pos to the first current position whose photograph says IsSelected(), or to -1; an
    /// empty current array leaves it unchanged.
    virtual void GetIndexSelected(int& pos) const;

protected:
    /// Make the settings that the document will own.
    virtual ToviPhotoCtrlVisualSetting* OnCreateVisualSettings();
    virtual ToviSortCondition* OnCreateSortCondition();
    /// What the camera maker's verifier alone says of the file \p path: 0 unaltered, 1 altered, 2
    /// anything else.
    int CheckEditJPEG_RICOHG600(const CString& path);
    /// Narrows the current array if extraction is on.
    void ExtractionProcess();
    bool AllOKLabel();
    bool AllRemoveCheckLabel();
    /// Does \p rule to all photographs of the current array.
    void CorrectShown(const std::function<void(PhotoReview&)>& rule);
    void BuildTreeNodeForKousyu(TreeType type);
    void BuildTreeNodeForSatsueikasyo();
    /// The first node, depth first from \p from on, that holds \p photoIndex itself; null if none.
    ToviNode* GetNode(int photoIndex, ToviNode* from) const;

private:
    ToviItemShowSettings LoadItems();
    /// Makes the photographs beneath the selected node, extracted and sorted, the current array.
    void RebuildCurrentArray();
    void TellOf(LabelEdit& edit);
    void Broadcast(UpdateHint hint, CWnd* sender = nullptr, CObject* object = nullptr);

    /// What most who use a document needn't know.
    struct Parts;

    CString rootPath;
    CStringArray earlierRoots;
    std::shared_ptr<const FolderClaim> folderClaim;
    CDocument* hostDocument;
    std::unique_ptr<Parts> parts;
    ToviItemArray mngItems;
    ReadingCounts readingCounts;
    ToviPhotoRef curPhotos;
    ToviNode* selectedNode = nullptr;
    int selectedLabel = -1;
    /// The settings were loaded: what the user sets from now on outlives a crash, too.
    bool settingsLoaded = false;
    int selectedPhoto = -1;
    ToviExtractionDlg* extraction = nullptr;
    bool checkStatusChanged = false;
    bool extractionOn = false;
    bool hasComment = true;
    bool standAlone = true;
    CString indexPath;
    PhotoXMLReadErr errorType = ReadErrNone;
};
