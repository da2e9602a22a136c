#pragma once

#include "platform/controls/WenDialog.h"

class SetUpKeyPage;

/// Lets the user change keys (キーの変更) where no delivery is open for all the settings.
class TOVI_EXPORT KeyChangeDlg : public WenDialog
{
    Q_OBJECT

public:
    explicit KeyChangeDlg(QWidget* parent);

protected:
    void OnOK() override;

private:
    SetUpKeyPage* page;
};
