#pragma once

#include "photos/LabelSlots.h"
#include "platform/store/StoredValues.h"
#include "platform/text/Text.h"

#include <array>

/// How one label looks.
class TOVI_EXPORT ToviLabelAttribute
{
public:
    ToviLabelAttribute() = default;
    /// \p labelColor is 0x00BBGGRR.
    ToviLabelAttribute(unsigned long labelColor, const char* labelName);
    ToviLabelAttribute(const ToviLabelAttribute&) = default;
    ToviLabelAttribute& operator=(const ToviLabelAttribute&) = default;
    virtual ~ToviLabelAttribute() = default;

    /// An attribute by itself is kept nowhere: these do nothing.
    virtual void Save(const char*) {}
    virtual void Load(const char*) {}

    const char* GetName() const { return name.c_str(); }
    void SetName(const char* text) { name = text; }
    unsigned long GetColor() const { return color; }
    void SetColor(unsigned long value) { color = value; }

private:
    CString name = "_未定義_";
    unsigned long color = 0x808080;
};

/// The names and colours of the six labels. The names persist in the profile store; the colours are
/// fixed unless a host sets them.
///
/// A manager that was loaded from the profile store saves itself in its destructor. One that was
/// not, a copy too, has nothing to say there. What is saved are the names that were changed since
/// they were loaded or saved, in a copy too; all of a manager that was never loaded.
class TOVI_EXPORT ToviLabelManager
{
public:
    /// The default names and colours.
    ToviLabelManager();
    /// Copies labelCount attributes.
    explicit ToviLabelManager(const ToviLabelAttribute* source);
    ToviLabelManager(const ToviLabelManager& other)
        : attributes(other.attributes), stored(other.stored)
    {}
    ToviLabelManager& operator=(const ToviLabelManager& other);
    virtual ~ToviLabelManager();
    /// Equal managers have the same names.
    bool operator==(const ToviLabelManager& other) const { return Entries() == other.Entries(); }

    /// Sets the default names and colours.
    void Initialize();
    static int GetMaxCount() { return static_cast<int>(labelCount); }

    /// Writes the names that were changed to the profile store. The argument isn't read. False at
    /// the first one that could not be kept, behind which none is written.
    virtual bool Save(const char* ignored) const;
    /// Takes over the names that the profile store has. The argument isn't read.
    virtual void Load(const char* ignored);

    /// Copies labelCount attributes.
    void SetLabelAttribute(const ToviLabelAttribute* source);
    /// \p slot is 0 to 5; it is not checked.
    ToviLabelAttribute& GetLabelAttribute(unsigned long slot) { return attributes[slot]; }
    const ToviLabelAttribute& GetLabelAttribute(unsigned long slot) const
    {
        return attributes[slot];
    }
    /// The first of labelCount attributes.
    const ToviLabelAttribute* GetLabelAttribute() const { return attributes.data(); }

private:
    StoredSection::Entries Entries() const;

    std::array<ToviLabelAttribute, labelCount> attributes;
    mutable StoredSection stored;
    bool loaded = false;
};
