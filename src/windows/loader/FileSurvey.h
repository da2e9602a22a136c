#pragma once

#include "platform/pictures/PictureFault.h"
#include "windows/loader/LoadKey.h"

#include <QObject>

#include <vector>

class ToviData;

/// A photograph whose file is missing or can't be what it should be.
struct FaultyFile
{
    /// The photo index.
    int photo = 0;
    PictureFault fault = PictureFault::None;

    bool operator==(const FaultyFile&) const = default;
};

/// How many of them there are.
struct TOVI_EXPORT SurveyCounts
{
    int missing = 0;
    int damaged = 0;
    int outside = 0;

    void Add(PictureFault fault);
    /// "写真なし 3枚・壊れた写真 2枚"; empty for none.
    CString Text() const;
};

/// Looks through the files of all photographs of a delivery while the loader has nothing else to
/// do: whether they are there, begin as pictures do, and are whole.
class TOVI_EXPORT FileSurvey : public QObject
{
    Q_OBJECT

public:
    FileSurvey();
    ~FileSurvey() override;

    /// Begins with \p newDocument, which stays until End or the next one.
    void Begin(ToviData& newDocument);
    /// Gives up.
    void End();
    /// What was found so far, in the order of the photographs.
    const std::vector<FaultyFile>& Faulty() const { return faulty; }
    const SurveyCounts& Counts() const { return counts; }
    /// How many photographs were looked at.
    int Seen() const { return seen; }

signals:
    /// Some more photographs were looked at.
    void Advanced();

private:
    void WantNext();
    void OnArrived(const LoadKey& key);

    ToviData* document = nullptr;
    LoadKey asked;
    int seen = 0;
    std::vector<FaultyFile> faulty;
    SurveyCounts counts;
};
