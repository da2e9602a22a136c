#pragma once

#include "platform/text/Export.h"
#include "platform/text/Text.h"

#include <QFrame>

class QLabel;
class QPushButton;
class SearchField;

/// A strip over the photographs that tells by what they are narrowed, with the field of the search
/// and the button that ends it all. Out of sight while there is nothing to tell and no search.
class TOVI_EXPORT ExtractionStrip : public QFrame
{
    Q_OBJECT

public:
    ExtractionStrip();

    /// \p end is what the button says.
    void Tell(const CString& sentence, const CString& end);
    /// Shows the field with the focus in it, and what stands there selected.
    void BeginSearch();
    /// Shows the field with \p words in it, as if they had been typed.
    void Search(const CString& words);
    /// Empties the field and hides it.
    void EndSearch();
    /// What stands in the field.
    CString SearchText() const;

signals:
    void EndRequested();
    /// The user types: another text is to be searched for.
    void TextChanged();
    /// The search alone is to end.
    void SearchEndRequested();
    void PhotosRequested();

private:
    void ShowIfNeeded();

    SearchField* field;
    QLabel* text;
    QPushButton* end;
};
