#pragma once

#include "platform/text/Text.h"

#include <QWidget>

class LumImgWnd;
class PictureFetch;
class QLabel;
class QStackedWidget;

/// Shows an SVG file, drawn by a process of its own, with a button that opens it as a page in the
/// browser.
class ToviHtmlView : public QWidget
{
    Q_OBJECT

public:
    explicit ToviHtmlView(QWidget* parent);

    /// Begins to draw the file \p svgPath, which is shown when it is drawn.
    void Navigate(const CString& svgPath);
    /// Shows nothing.
    void Clear();
    /// The file on show; empty for none.
    const CString& GetPath() const { return path; }

private:
    void OpenPage();
    void Tell(const QString& sentence);

    CString path;
    PictureFetch* fetch;
    QStackedWidget* pages;
    LumImgWnd* drawing;
    QLabel* notice;
};
