#pragma once

#include "windows/loader/LoadKey.h"

#include <QWidget>

class LumImgWnd;
class QLabel;
class QStackedWidget;

/// Shows an SVG file, drawn by a process of its own, with a button that opens it as a page in the
/// browser.
class ToviHtmlView : public QWidget
{
    Q_OBJECT

public:
    explicit ToviHtmlView(QWidget* parent);
    ~ToviHtmlView() override;

    /// Shows the file of \p wish, whose result is a LoadedPicture, when it is drawn.
    void Navigate(const LoadWish& wish);
    /// Shows nothing.
    void Clear();
    /// The file on show; empty for none.
    const CString& GetPath() const { return drawn.path; }

private:
    void OnArrived(const LoadKey& key);
    void OpenPage();
    void Tell(const QString& sentence);

    LoadKey drawn;
    QStackedWidget* pages;
    LumImgWnd* drawing;
    QLabel* notice;
};
