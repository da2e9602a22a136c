#pragma once

#include "photos/ToviPhotoArray.h"
#include "review/RecordOrigin.h"
#include "review/ToviXmlManager.h"

/// Writes the inspection record: the comments and labels of all photographs.
class ToviXmlSaveManager : public ToviXmlManager
{
public:
    /// \p recordNote is kept and not written; it and \p deliveryRoot may be null.
    ToviXmlSaveManager(const char* recordPath, const char* recordNote, const char* deliveryRoot);

    /// Has each photograph's image path written too.
    void WritePath(bool write) { writePath = write; }
    /// Has the record say of which delivery it is.
    void WriteOrigin(const RecordOrigin& delivery);

    /// Has the record say which photographs were drawn; without this it says what the record that
    /// it replaces has said.
    void WriteSample(const CString& text) { sample = text; }

    /// False leaves the file as it was and a RecordFailure in \p result.
    bool Save(const ToviPhotoArray& photos, int* result);

private:
    void AddSample();
    bool HasSpace(int photoCount) const;
    bool BuildFrame(int photoCount);
    bool WritePhotos(const ToviPhotoArray& photos);
    void WritePhoto(ToviPhoto& photo);
    void Write(const char* tag, const char* text);
    void Enter(const char* tag);

    bool writePath = false;
    ToviXmlHeaderManager header;
    CString note;
    CString sample;
};
