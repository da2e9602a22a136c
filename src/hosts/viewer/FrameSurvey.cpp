#include "hosts/viewer/FrameSurvey.h"

#include "hosts/viewer/NoticeStrip.h"
#include "hosts/viewer/ViewerDocument.h"
#include "photos/ToviPhoto.h"
#include "platform/text/QtText.h"
#include "windows/pictures/FaultText.h"

FrameSurvey::FrameSurvey(QObject* parent, ViewerDocument& theDocument)
    : QObject(parent), document(theDocument), strip(new NoticeStrip)
{
    connect(&document, &ViewerDocument::Opened, this, [this] {
        isDismissed = false;
        survey.Begin(*document.Data());
    });
    connect(&document, &ViewerDocument::Closing, this, [this] {
        survey.End();
        gone = 0;
        told.clear();
        strip->Tell({});
    });
    connect(&survey, &FileSurvey::Advanced, this, &FrameSurvey::Tell);
    connect(strip, &NoticeStrip::ActionRequested, this, &FrameSurvey::ShowNext);
    connect(strip, &NoticeStrip::Closed, this, [this] { isDismissed = true; });
}

QWidget* FrameSurvey::Strip() const
{
    return strip;
}

void FrameSurvey::Tell()
{
    const std::vector<FaultyFile>& faulty = survey.Faulty();
    CString text = survey.Counts().Text();
    if (text.empty() || isDismissed) return;
    if (gone > 0) {
        const auto& [photo, fault] = faulty[gone - 1];
        const CString path = document.Data()->GetPhotoActualPhotoArray(photo)->GetImagePath();
        text += Format("（%d / %d：%s %s）", static_cast<int>(gone),
                       static_cast<int>(faulty.size()), path.substr(path.rfind('/') + 1).c_str(),
                       FromQtText(FaultReason(fault)).c_str());
    }
    if (std::exchange(told, text) == text) return;
    strip->SetAction(gone > 0 ? QStringLiteral("次を見る") : QStringLiteral("見る"));
    strip->Tell({text});
}

void FrameSurvey::ShowNext()
{
    if (survey.Faulty().empty()) return;
    gone = gone % survey.Faulty().size() + 1;
    Tell();
    emit PhotoRequested(survey.Faulty()[gone - 1].photo);
}
