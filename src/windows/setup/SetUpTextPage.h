#pragma once

#include "platform/text/Text.h"

#include <QWidget>

class QListWidget;

/// The page 定型文: the texts that a comment can be made of, in the order of their keys.
class SetUpTextPage : public QWidget
{
    Q_OBJECT

public:
    SetUpTextPage();

    void Show(const CStringArray& texts);
    CStringArray Texts() const;

private:
    void Add(const CString& text);
    void Move(int by);

    QListWidget* list;
};
