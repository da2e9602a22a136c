#pragma once

#include "platform/text/Export.h"

#include <QFileDialog>

/// The window in which a file or a folder is chosen. It is Qt's own on every desktop, since others'
/// can do more than choose: here nothing can be deleted, renamed, dragged or dropped. Where
/// something is to be saved a folder can be made, and neither folder nor file goes into a delivery.
class TOVI_EXPORT FileDialog : public QFileDialog
{
    Q_OBJECT

public:
    enum class Use
    {
        OpenFile,
        OpenFolder,
        SaveFile,
        /// A folder that files will be written to.
        SaveFolder
    };

    /// Starts in \p folder.
    FileDialog(Use use, const QString& title, const QString& folder, QWidget* parent);

    /// The full path of what the user chooses; empty when he gives up.
    QString Ask();

protected:
    void accept() override;

private:
    QString Chosen() const;
    /// Takes away whatever could change a file.
    void OnlyChoose();
    void MakeFolder();
    /// Tells why nothing can be saved as \p path. False when it can.
    bool Refuse(const QString& path);
    void Warn(const QString& text);

    Use use;
};
