#pragma once

#include "extraction/ExtractionConditions.h"
#include "platform/controls/WenDialog.h"

#include <array>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QDateEdit;
class QGridLayout;
class QStringListModel;
class ToviData;

/// Sets the conditions of extraction on items and dates, and how all conditions are joined
/// (詳細設定).
class TOVI_EXPORT ToviExtDetailDlg : public WenDialog
{
    Q_OBJECT

public:
    /// Starts from \p before. \p theDocument outlives the dialog.
    ToviExtDetailDlg(ToviData& theDocument, const ExtractionConditions& before, QWidget* parent);

    /// After OK the conditions as they were entered; those of other windows are as before.
    const ExtractionConditions& GetConditions() const { return conditions; }

protected:
    void OnInitDialog() override;
    void OnOK() override;

private:
    struct Row
    {
        QCheckBox* on = nullptr;
        QComboBox* item = nullptr;
        QComboBox* text = nullptr;
        QStringListModel* values = nullptr;
    };

    void AddRow(std::size_t number, QGridLayout* grid);
    QWidget* MakeDates();
    QWidget* MakeModes();
    void ShowRow(std::size_t number);
    void ShowDates();
    void FillItems(const Row& row);
    void FillValues(const Row& row);
    void OnRowClicked(const Row& row);
    void EnableDates();
    ExtractionConditions Entered() const;

    ToviData& document;
    ExtractionConditions conditions;
    std::array<Row, 3> rows;
    QCheckBox* dateOn;
    QButtonGroup* dateKind;
    QDateEdit* dateFrom;
    QDateEdit* dateTo;
    QButtonGroup* mode;
};
