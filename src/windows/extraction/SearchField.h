#pragma once

#include <QLineEdit>

/// The field for the text that is searched for. Escape ends the search, Enter and Down lead to the
/// photographs that were found.
class SearchField : public QLineEdit
{
    Q_OBJECT

public:
    SearchField();

signals:
    void EndRequested();
    void PhotosRequested();

protected:
    void keyPressEvent(QKeyEvent* event) override;
};
