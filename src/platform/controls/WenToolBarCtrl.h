#pragma once

#include "platform/text/Export.h"
#include "platform/text/Text.h"

#include <QIcon>
#include <QToolBar>

#include <vector>

/// One place in a tool bar.
struct WenToolBarButton
{
    enum class Kind
    {
        Push,
        Check,
        Separator
    };

    Kind kind = Kind::Separator;
    int id = 0;
    /// The number of its picture.
    int image = 0;
};

/// A tool bar whose buttons are known by their command ids. Tab leads to the buttons.
class TOVI_EXPORT WenToolBarCtrl : public QToolBar
{
    Q_OBJECT

public:
    explicit WenToolBarCtrl(QWidget* parent = nullptr);

    /// The pictures that the buttons take by number, before AddButtons.
    void SetImages(std::vector<QIcon> icons);
    /// Adds \p buttons. \p labels are their texts in order, separators left out, with "|" between;
    /// they are tool tips too.
    void AddButtons(const std::vector<WenToolBarButton>& buttons, const CString& labels);

    /// The calls below do nothing for an id that no button has.
    void EnableButton(int id, bool enable);
    void CheckButton(int id, bool check);
    bool IsButtonChecked(int id) const;
    void SetButtonImage(int id, int image);
    void SetButtonText(int id, const QString& text, const QString& tip);

signals:
    /// The user pressed the button \p id; one that can be checked has changed already.
    void Command(int id);

private:
    QAction* Find(int id) const;
    QIcon Image(int number) const;

    std::vector<QIcon> images;
};
