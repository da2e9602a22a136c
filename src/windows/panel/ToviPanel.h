#pragma once

#include "delivery/ToviData.h"

#include <QWidget>

/// The base of everything that the host docks: a window that shows the open document, which it
/// doesn't own, and reacts to the document's updates. It is created detached.
class TOVI_EXPORT ToviPanel : public QWidget
{
    Q_OBJECT

public:
    ToviPanel() = default;

    /// Places the children anew.
    virtual void ReCalcLayout() {}
    /// The control that the panel is all about; null when there is none.
    virtual QWidget* GetCtrl() { return nullptr; }
    /// Makes the panel a visible child of \p parent with the number \p id. Its size comes from the
    /// parent.
    virtual bool Create(QWidget* parent, unsigned int id);
    /// To be called before the panel is brought into view. False keeps it out.
    virtual bool OnPreVisible() { return true; }
    /// To be called after the panel was brought into view.
    virtual void OnPostVisible() {}
    /// Runs after every Attach and Detach, with the new document or null in place.
    virtual void OnPostAttachData() {}
    /// Runs before a document goes, while it is still there.
    virtual void OnPreDetachData() {}
    virtual bool IsLabelTreePanel() { return false; }
    virtual bool IsSelectTreeRoot() { return false; }
    /// Reacts to an update of the document; \p sender and \p object may be null. Every override
    /// calls this one first: after HintDetach there is no document any more.
    virtual void OnUpdate(CWnd* sender, ToviData::UpdateHint hint, CObject* object);

    /// Takes \p newData, which outlives the panel's hold on it, and returns the document before.
    ToviData* Attach(ToviData* newData);
    /// Lets go of the document and returns it.
    ToviData* Detach();
    ToviData* GetData() const { return data; }

private:
    ToviData* data = nullptr;
};
