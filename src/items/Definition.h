#pragma once

#include "platform/text/Text.h"

/// The necessity of an element.
enum Grade
{
    /// 不要: the value is not kept.
    GradeUnneeded = 0,
    /// 必須
    GradeRequired = 1,
    /// 条件付き必須
    GradeConditional = 2,
    /// 任意
    GradeOptional = 3,
    /// 連携
    GradeLinked = 4
};

/// Where an item is displayed.
enum ShowSituation
{
    ShowNot = 0,
    ShowMainList = 1,
    ShowInfoDlg = 2,
    ShowZoomDlg = 3
};

/// How many times an element may occur.
enum DataCount
{
    CountNone = 0,
    CountOne = 1,
    CountZeroOrOne = 2,
    CountZeroOrMore = 3,
    CountOneOrMore = 4
};

/// Where the walk over PHOTO.XML goes after an element.
enum TreeStep
{
    StepChild = 0,
    StepNext = 1,
    StepParent = 2
};

/// Where a value is stored.
enum ReadKind
{
    ReadNotItem = 0,
    ReadMngItem = 1,
    ReadPhotoItem = 2
};

/// One element of PHOTO.XML: what to do on meeting it.
struct Definition
{
    /// The tag name, which is also the item's title everywhere in the system.
    CString title;
    Grade grade = GradeUnneeded;
    ShowSituation show = ShowNot;
    DataCount count = CountNone;
    TreeStep operation = StepNext;
    /// The element opens a block that occurs several times.
    bool blockPlural = false;
    ReadKind readType = ReadNotItem;
};
