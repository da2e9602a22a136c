#pragma once

#include "items/ToviItemShowSettings.h"
#include "items/TreeType.h"
#include "platform/store/StoredValues.h"

/// How the viewer shows a document.
///
/// A setting that was loaded from the profile store saves itself in its destructor. One that was
/// not, a copy too, has nothing to say there. What is saved are the entries that were changed since
/// they were loaded or saved, in a copy too; all of a setting that was never loaded.
class TOVI_EXPORT ToviPhotoCtrlVisualSetting
{
public:
    /// The section and entries of the profile store.
    static constexpr const char* VisualSettingSection_ = "VisualSetting";
    static constexpr const char* TextArrangeEntry_ = "TextArrange";
    static constexpr const char* TreeTypeEntry_ = "TreeType";
    static constexpr const char* DivideTypeEntry_ = "DivideType";
    static constexpr const char* TitleShowTypeEntry_ = "TitleShowType";
    static constexpr const char* DoEditCheck_ = "DoEditCheck";
    static constexpr const char* VisibleDetail_ = "VisibleDetail";
    static constexpr const char* VisibleProperty_ = "VisibleProperty";
    static constexpr const char* VisibleComment_ = "VisibleComment";
    static constexpr const char* VisibleControlValue_ = "VisibleControlValue";
    static constexpr const char* EditCheckTypes_ = "EditCheckTypes";
    /// Not read and not written.
    static constexpr const char* EditCheckType_ = "EditCheckType";

    /// 写真情報リスト表示. The numbers of this and the other enumerations are what is stored;
    /// numbers outside of them may be stored, too.
    enum ImageTextArrange : int
    {
        /// 非表示
        TextHidden = 0,
        /// 表示: the list stands beside the photograph
        TextBeside = 1
    };

    using TreeType = ::TreeType;
    using enum ::TreeType;

    /// The display mode.
    enum DivideType : int
    {
        /// 1枚表示
        DivideOne = 0,
        /// 2枚表示
        DivideTwo = 1,
        /// 3枚表示
        DivideThree = 2,
        /// 4枚表示
        DivideFour = 3,
        /// 6枚表示
        DivideSix = 4,
        /// サムネイル表示
        DivideThumbnails = 5,
        /// リスト表示
        DivideList = 6
    };

    /// Which item is the caption of a photograph.
    enum TitleShowType : int
    {
        /// 写真ファイル名
        TitleFileName = 0,
        /// 写真ファイル日本語名
        TitleJapaneseFileName = 1,
        /// 写真タイトル
        TitlePhotoTitle = 2
    };

    ToviPhotoCtrlVisualSetting() = default;
    ToviPhotoCtrlVisualSetting(const ToviPhotoCtrlVisualSetting& other)
        : values(other.values), stored(other.stored)
    {}
    ToviPhotoCtrlVisualSetting& operator=(const ToviPhotoCtrlVisualSetting& other);
    virtual ~ToviPhotoCtrlVisualSetting();
    bool operator==(const ToviPhotoCtrlVisualSetting& other) const
    {
        return values == other.values;
    }

    ImageTextArrange GetImageTextArrange() const { return values.imageTextArrange; }
    void SetImageTextArrange(ImageTextArrange arrange) { values.imageTextArrange = arrange; }
    ToviItemShowSettings& GetItemShowSettings() { return values.itemShowSettings; }
    const ToviItemShowSettings& GetItemShowSettings() const { return values.itemShowSettings; }
    void SetItemShowSettings(const ToviItemShowSettings& items) { values.itemShowSettings = items; }
    TreeType GetTreeType() const { return values.treeType; }
    void SetTreeType(TreeType type) { values.treeType = type; }
    DivideType GetDivType() const { return values.divType; }
    void SetDivType(DivideType type) { values.divType = type; }
    TitleShowType GetTitleShowType() const { return values.titleShowType; }
    void SetTitleShowType(TitleShowType type) { values.titleShowType = type; }
    /// 画像加工検知を行う
    bool GetDoEditCheck() const { return values.doEditCheck; }
    void SetDoEditCheck(bool check) { values.doEditCheck = check; }
    bool GetVisibleDetail() const { return values.visibleDetail; }
    void SetVisibleDetail(bool visible) { values.visibleDetail = visible; }
    bool GetVisibleProperty() const { return values.visibleProperty; }
    void SetVisibleProperty(bool visible) { values.visibleProperty = visible; }
    bool GetVisibleComment() const { return values.visibleComment; }
    void SetVisibleComment(bool visible) { values.visibleComment = visible; }
    bool GetVisibleControlValue() const { return values.visibleControlValue; }
    void SetVisibleControlValue(bool visible) { values.visibleControlValue = visible; }
    /// The numbers of the tamper checks in their order, joined by ",".
    const CString& GetEditCheckTypes() const { return values.editCheckTypes; }
    void SetEditCheckTypes(const CString& types) { values.editCheckTypes = types; }

    /// Rows, columns and photographs of a page; 0 where the mode has no pages.
    unsigned long GetRowCount() const;
    unsigned long GetColCount() const;
    unsigned long GetCountOfSet() const { return GetRowCount() * GetColCount(); }
    /// The mode shows pages.
    bool IsPreviewStyle() const;
    bool IsThumbListStyle() const { return values.divType == DivideThumbnails; }
    bool IsManagementListStyle() const { return values.divType == DivideList; }
    /// The results of the tamper check under this setting don't hold under \p other.
    bool IsChangeEditCheckTerm(const ToviPhotoCtrlVisualSetting& other) const;

    /// Takes over what the profile store has. Always true.
    bool Load();
    /// Writes what was changed to the profile store. False at the first entry that could not be
    /// kept, behind which none is written.
    bool Save();

private:
    struct Values
    {
        ImageTextArrange imageTextArrange = TextBeside;
        ToviItemShowSettings itemShowSettings;
        TreeType treeType = TreeWorkTypeFull;
        DivideType divType = DivideThumbnails;
        TitleShowType titleShowType = TitlePhotoTitle;
        bool doEditCheck = false;
        bool visibleDetail = true;
        bool visibleProperty = true;
        bool visibleComment = true;
        bool visibleControlValue = true;
        CString editCheckTypes = "1";
        bool operator==(const Values&) const = default;
    };

    StoredSection::Entries Entries() const;

    Values values;
    StoredSection stored;
    bool loaded = false;
};
