#include "imagefacts/ImageTypeChoice.h"
#include "imagefacts/ToviJacicImageChecker.h"
#include "imagefacts/ToviRicohImageChecker.h"
#include "platform/host/HostServices.h"
#include "platform/text/Cp932.h"
#include "sample/SampleExif.h"
#include "support/Standins.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <climits>
#include <functional>
#include <set>
#include <sstream>

namespace
{
using Status = ToviCheckProcessor::CheckStatus;

/// A program folder of its own, with stand-ins for the verifiers in it.
class TamperCheck : public testing::Test
{
protected:
    TamperCheck()
    {
        InstallHostServices({nullptr, nullptr, "Tovi", temp.MakeFolder("program") + "/tovi"});
    }
    ~TamperCheck() override { InstallHostServices({}); }

    void InstallVerifiers()
    {
        Standins::Install("JACICCHS", temp.Path("program"));
        Standins::Install("RVRFYJPG", temp.Path("program"));
    }

    /// Writes a photograph of this camera, for which the verifiers give these \p answers.
    CString Photograph(std::string_view model, std::string_view answers,
                       const CString& name = "P1.JPG") const
    {
        const std::string noPicture = "\xFF\xD8\xFF\xD9";
        const SampleShot shot{.takenAt = std::chrono::sys_days(std::chrono::year(2024) / 5 / 1),
                              .maker = "KAEDE",
                              .model = model,
                              .width = 16,
                              .height = 12,
                              .shutter = 125,
                              .aperture = 40,
                              .exposureBias = 0,
                              .flash = false,
                              .position = {}};
        return temp.Write(name, WithExif(noPicture, shot).append(answers));
    }

    /// The verifiers that were asked, in order: R for the camera maker's, J and S for the hash
    /// checker's functions.
    CString Asked() const
    {
        CString asked;
        std::istringstream calls(standins.TakeCalls());
        for (CString call; std::getline(calls, call);) {
            asked += call.starts_with("RVJ_") ? 'R' : call.starts_with("JCOMSIA_SVG") ? 'S' : 'J';
        }
        return asked;
    }

    TempFolder temp;
    Standins standins;
};

struct Meanings
{
    const char* name;
    const char* key;
    std::set<int> unaltered;
    std::set<int> altered;
    std::set<int> outside;

    Status Of(int code) const
    {
        if (unaltered.contains(code)) return ToviCheckProcessor::StatusUnaltered;
        if (altered.contains(code)) return ToviCheckProcessor::StatusAltered;
        return outside.contains(code) ? ToviCheckProcessor::StatusOutsideTarget
                                      : ToviCheckProcessor::StatusError;
    }
};

TEST_F(TamperCheck, EveryAnswerHasItsMeaning)
{
    InstallVerifiers();
    ToviRicohImageChecker ricoh;
    ToviJacicImageChecker jacic;
    const struct
    {
        ToviCheckProcessor& checker;
        Meanings meanings;
    } verifiers[] = {
        {ricoh, {"P1.JPG", "rvj=", {0}, {1}, {2}}},
        {jacic, {"P2.JPG", "hash=", {1}, {0, -1, -2, -307}, {-305, -304, -303}}},
        {jacic,
         {"P3.sVg",
          "hash=",
          {1},
          {0, -1, -2, -3, -23, -24, -25, -43, -44, -45},
          {-21, -22, -41, -42, -61, -81, -82, -83, -84, -85, -86, -301, -303, -304, -305, -307}}},
    };
    std::vector<int> codes = {INT_MIN, INT_MAX};
    for (int code = -310; code <= 5; ++code) codes.push_back(code);
    for (const auto& [checker, meanings] : verifiers) {
        for (const int code : codes) {
            const CString path = temp.Write(meanings.name, meanings.key + std::to_string(code));
            ASSERT_EQ(checker.Check(path.c_str()), meanings.Of(code)) << meanings.name << code;
        }
        EXPECT_EQ(checker.Check(nullptr), ToviCheckProcessor::StatusError);
    }
}

TEST_F(TamperCheck, ChainsAskInTheirOrder)
{
    InstallVerifiers();
    const struct
    {
        const char* types;
        const char* model;
        const char* answers;
        Status status;
        const char* asked;
    } cases[] = {
        {"0", "G800", "rvj=0", ToviCheckProcessor::StatusUnaltered, "R"},
        {"0", "X1", "rvj=0", ToviCheckProcessor::StatusError, ""},
        {"1", "G800", "hash=1", ToviCheckProcessor::StatusUnaltered, "J"},
        {"2", "X1", "hash=0", ToviCheckProcessor::StatusAltered, "J"},
        {"0,1", "G800", "rvj=2 hash=1", ToviCheckProcessor::StatusOutsideTarget, "R"},
        {"0,1", "X1", "rvj=1 hash=1", ToviCheckProcessor::StatusUnaltered, "J"},
        {"0,2,1", "G800", "rvj=7 hash=-305", ToviCheckProcessor::StatusOutsideTarget, "RJJ"},
        {"0,2,1", "G800", "rvj=1 hash=1", ToviCheckProcessor::StatusAltered, "R"},
        {"1,1", "X1", "hash=-303", ToviCheckProcessor::StatusOutsideTarget, "JJ"},
        {"1,0", "X1", "hash=-304", ToviCheckProcessor::StatusOutsideTarget, "J"},
        {"1,0", "G600", "hash=-304 rvj=7", ToviCheckProcessor::StatusError, "JR"},
        {"9", "G800", "rvj=0 hash=1", ToviCheckProcessor::StatusError, ""},
        {"", "G800", "rvj=0 hash=1", ToviCheckProcessor::StatusError, ""},
        {"0,,1", "G700", "rvj=7 hash=1", ToviCheckProcessor::StatusUnaltered, "RJ"},
        {",9,258, 1,-255,", "X1", "hash=7", ToviCheckProcessor::StatusError, "JJJ"},
        {"9,9,9,9,9,9,9,9,9,1,0", "G800", "rvj=0 hash=7", ToviCheckProcessor::StatusError, "J"},
        {"99999999999999999999", "X1", "hash=1", ToviCheckProcessor::StatusError, ""},
    };
    ToviImageCheckCommon chain(nullptr);
    for (const auto& c : cases) {
        chain.SetCheckCameraType(ParseEditCheckTypes(c.types));
        chain.SetFile(Photograph(c.model, c.answers).c_str());
        EXPECT_EQ(chain.CheckProcessedImage(), c.status) << c.types << c.model << c.answers;
        EXPECT_EQ(Asked(), c.asked) << c.types << c.model << c.answers;
    }
    chain.SetCheckCameraType({300, 256});
    EXPECT_EQ(chain.CheckProcessedImage(), ToviCheckProcessor::StatusError);
}

TEST_F(TamperCheck, ClaimsTheMakersCamerasAlone)
{
    const struct
    {
        CString model;
        bool isTarget;
    } cases[] = {{"G600", true},
                 {"G700", true},
                 {"G700 SE", true},
                 {"G800", true},
                 {"G800 SE", true},
                 {" 　 G700 SE　 　", true},
                 {*Cp932::Encode("　G800　 "), true},
                 {"G700SE", false},
                 {"G700　SE", false},
                 {"g800", false},
                 {"G900", false},
                 {"G8000", false},
                 {"　 ", false},
                 {*Cp932::Encode("　G800") + "\x83 ", false},
                 {"", false}};
    ToviRicohImageChecker checker;
    for (const auto& [model, isTarget] : cases) {
        EXPECT_EQ(checker.IsTarget(Photograph(model, "").c_str()), isTarget) << model;
    }
    EXPECT_FALSE(checker.IsTarget(nullptr));
    EXPECT_FALSE(checker.IsTarget(temp.Path("missing.JPG").c_str()));
}

TEST_F(TamperCheck, VerifiersGetTheWholeFileOnce)
{
    InstallVerifiers();
    const CString path = Photograph("G800", std::string(300000, '\0') + "rvj=7 hash=7");
    ToviImageCheckCommon chain(nullptr);
    chain.SetCheckCameraType({0, 1});
    // On its own system the delivery is read without regard to letter case.
    chain.SetFile(temp.Path("p1.jpg").c_str());
    EXPECT_EQ(chain.CheckProcessedImage(), ToviCheckProcessor::StatusError);
    EXPECT_EQ(standins.TakeCalls(),
              "RVJ_Verify " + std::to_string(std::hash<std::string>()(temp.Read("P1.JPG"))) +
                  "\nJCOMSIA_CheckHashValue " + path + '\n');
}

TEST_F(TamperCheck, FilesThatCannotBeJudgedAreErrors)
{
    InstallVerifiers();
    mkfifo(temp.Path("pipe.JPG").c_str(), 0600);
    temp.MakeFolder("folder.JPG");
    temp.Write("empty.JPG", "");
    temp.Write("empty.svg", "");
    ToviRicohImageChecker ricoh;
    ToviJacicImageChecker jacic;
    for (const char* name : {"missing.JPG", "pipe.JPG", "folder.JPG"}) {
        EXPECT_EQ(ricoh.Check(temp.Path(name).c_str()), ToviCheckProcessor::StatusError) << name;
        EXPECT_EQ(jacic.Check(temp.Path(name).c_str()), ToviCheckProcessor::StatusError) << name;
    }
    EXPECT_EQ(jacic.Check(""), ToviCheckProcessor::StatusError);
    EXPECT_EQ(Asked(), "");
    EXPECT_EQ(ricoh.Check(temp.Path("empty.JPG").c_str()), ToviCheckProcessor::StatusError);
    EXPECT_EQ(jacic.Check(temp.Path("empty.JPG").c_str()), ToviCheckProcessor::StatusError);
    EXPECT_EQ(jacic.Check(temp.Path("empty.svg").c_str()), ToviCheckProcessor::StatusError);
    EXPECT_EQ(Asked(), "RJS");
}

TEST_F(TamperCheck, LivesWithoutItsLibraries)
{
    const CString folder = temp.Path("program");
    const auto libraries = [&folder](const char* kind, const CString& jacic, const CString& ricoh) {
        Standins::Install("JACICCHS", folder, jacic, kind);
        Standins::Install("RVRFYJPG", folder, ricoh, kind);
    };
    const struct
    {
        const char* name;
        std::function<void()> install;
        /// The verifiers asked about a photograph of a G800, and about an SVG one.
        const char* asked;
        const char* askedSvg;
        bool isHashCheckerFound;
    } cases[] = {
        {"none", [] {}, "", "", false},
        {"whole", [&] { libraries("whole", "JACICCHS.so", "RVRFYJPG.so"); }, "RJJ", "SS", true},
        {"another letter case", [&] { libraries("whole", "jacicchs.SO", "RvrfyJpg.so"); }, "RJJ",
         "SS", true},
        {"functions are missing", [&] { libraries("lacking", "JACICCHS.so", "RVRFYJPG.so"); }, "JJ",
         "", true},
        {"no libraries",
         [this] {
             temp.Write("program/JACICCHS.so", "MZ");
             temp.Write("program/RVRFYJPG.so", "");
         },
         "", "", true},
        {"no files",
         [this] {
             mkfifo(temp.Path("program/JACICCHS.so").c_str(), 0600);
             temp.MakeFolder("program/RVRFYJPG.so");
         },
         "", "", false},
    };
    const CString photograph = Photograph("G800", "rvj=7 hash=7");
    const CString svg = temp.Write("P2.svg", "<svg/>");
    for (const auto& c : cases) {
        std::filesystem::remove_all(folder);
        temp.MakeFolder("program");
        c.install();
        EXPECT_TRUE(ToviRicohImageChecker().IsEnableDLL()) << c.name;
        EXPECT_EQ(ToviJacicImageChecker().IsEnableDLL(), c.isHashCheckerFound) << c.name;
        ToviImageCheckCommon chain(photograph.c_str());
        chain.SetCheckCameraType({0, 2, 1});
        EXPECT_EQ(chain.CheckProcessedImage(), ToviCheckProcessor::StatusError) << c.name;
        EXPECT_EQ(Asked(), c.asked) << c.name;
        chain.SetFile(svg.c_str());
        EXPECT_EQ(chain.CheckProcessedImage(), ToviCheckProcessor::StatusError) << c.name;
        EXPECT_EQ(Asked(), c.askedSvg) << c.name;
    }
}

TEST_F(TamperCheck, KeepsAFileThatDiffersInCaseAlone)
{
    InstallVerifiers();
    ToviImageCheckCommon chain(Photograph("X1", "hash=1", "P1.JPG").c_str());
    chain.SetCheckCameraType({1});
    chain.SetFile(Photograph("X1", "hash=0", "p1.jpg").c_str());
    EXPECT_EQ(chain.CheckProcessedImage(), ToviCheckProcessor::StatusUnaltered);
    chain.SetFile(Photograph("X1", "hash=0", "P2.JPG").c_str());
    EXPECT_EQ(chain.CheckProcessedImage(), ToviCheckProcessor::StatusAltered);
}

TEST_F(TamperCheck, OffersTheTypesInTheOrderOfTheChain)
{
    const auto offered = [](const CWordArray& chosen) {
        CString text;
        for (const ImageTypeRow& row : ImageTypeRows(chosen)) {
            text += row.name + (row.ticked ? "+" : "-");
        }
        return text;
    };
    EXPECT_EQ(offered({1, 2}), "RICOH G800/G700/G600-RICOH G900+");
    InstallVerifiers();
    EXPECT_EQ(offered({1, 0, 9}), "RICOH G800/G700/G600+RICOH G900-小黒板電子化+");

    std::vector<ImageTypeRow> rows = ImageTypeRows({1, 0});
    rows[1].ticked = true;
    EXPECT_EQ(EditCheckTypesText(TickedTypes(rows)), "0,2,1");
    rows[0].ticked = false;
    EXPECT_EQ(EditCheckTypesText(TickedTypes(rows)), "2,1");
    EXPECT_EQ(TickedTypes(ImageTypeRows({})).GetSize(), 0);
    EXPECT_EQ(ToviImageCheckCommon::QueryCameraName(ToviImageCheckCommon::CameraType{3}), "");

    EXPECT_EQ(ImageTypeDescription(nullptr), "リストで選択したタイプの説明を表示します。");
    EXPECT_TRUE(ImageTypeDescription(&rows[0]).starts_with("RICOH社デジタルカメラの"));
    EXPECT_TRUE(ImageTypeDescription(&rows[1]).starts_with("改ざん検知機能を有した"));
    EXPECT_EQ(ImageTypeDescription(&rows[2]), ImageTypeDescription(&rows[1]));
}
} // namespace
