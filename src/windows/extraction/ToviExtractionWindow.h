#pragma once

#include "extraction/ToviExtractionDlg.h"
#include "windows/panel/ToviPanel.h"

#include <array>

class QCheckBox;
class QLabel;
class QPushButton;

/// The small window, docked by the host, in which the inspector sets the conditions of extraction
/// and switches it on and off.
class TOVI_EXPORT ToviExtractionWindow : public ToviPanel, public ToviExtractionDlg
{
    Q_OBJECT

public:
    ToviExtractionWindow();

    const ExtractionConditions& GetConditions() const override { return conditions; }
    void CancelExtraction(CancelExt value) override;
    /// Extraction is on.
    bool IsRunning() const { return running; }

    /// Lets the user set the detail conditions (詳細設定).
    void OnBnClickedDetails();
    /// Switches extraction on, or off.
    void OnBnClickedExecute();
    /// Takes \p newConditions in place of those that are set, and extracts by them if \p runs.
    void Resume(const ExtractionConditions& newConditions, bool runs);
    /// Enables or disables what conditions are set by: while the photographs of a label are on
    /// show, they don't count.
    void EnableExtractCtrl(bool enable);
    /// Enables the button that saves the photographs on show if there are any.
    void UpdateOutputAllPhotoButton();
    /// Moves the focus to the first condition that can be set.
    void FocusConditions();

    void OnPostAttachData() override;
    void OnPreDetachData() override;
    void OnUpdate(CWnd* sender, ToviData::UpdateHint hint, CObject* object) override;

signals:
    /// Extraction went on or off, or ran by other conditions.
    void StateChanged();

private:
    /// Forgets all conditions.
    void initialize();
    void CheckExecutionEnable();
    void OnBnClickedOutputAllPhoto();
    void ReadChecks();
    void ShowState();

    ExtractionConditions conditions;
    bool running = false;
    bool canExtract = true;
    std::array<QCheckBox*, 5> checks;
    QPushButton* detailsButton;
    QLabel* details;
    QLabel* ofLabelHint;
    QPushButton* executeButton;
    QPushButton* outputButton;
};
