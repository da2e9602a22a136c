#include "imagefacts/ImageTypeChoice.h"
#include "imagefacts/ToviJacicImageChecker.h"
#include "imagefacts/ToviRicohImageChecker.h"
#include "platform/host/HostServices.h"
#include "platform/text/Cp932.h"
#include "sample/SampleExif.h"
#include "support/Standins.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

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

TEST_F(TamperCheck, EveryAnswerHasItsMeaning)
{
    InstallVerifiers();
    ToviRicohImageChecker ricoh;
    ToviJacicImageChecker jacic;
    using Codes = std::set<int>;
    const struct
    {
        ToviCheckProcessor& checker;
        const char* name;
        const char* key;
        Codes altered;
        Codes outside;
        int unaltered;
    } verifiers[] = {
        {ricoh, "P1.JPG", "rvj=", {1}, {2}, 0},
        {jacic, "P2.JPG", "hash=", {0, -1, -2, -307}, {-305, -304, -303}, 1},
        {jacic,
         "P3.sVg",
         "hash=",
         {0, -1, -2, -3, -23, -24, -25, -43, -44, -45},
         {-21, -22, -41, -42, -61, -81, -82, -83, -84, -85, -86, -301, -303, -304, -305, -307},
         1},
    };
    for (const auto& v : verifiers) {
        for (int code = -310; code <= 5; ++code) {
            const Status meaning = code == v.unaltered        ? ToviCheckProcessor::StatusUnaltered
                                   : v.altered.contains(code) ? ToviCheckProcessor::StatusAltered
                                   : v.outside.contains(code)
                                       ? ToviCheckProcessor::StatusOutsideTarget
                                       : ToviCheckProcessor::StatusError;
            const CString path = temp.Write(v.name, v.key + std::to_string(code));
            ASSERT_EQ(v.checker.Check(path.c_str()), meaning) << v.name << code;
        }
    }
}

TEST_F(TamperCheck, ChainsAskInTheirOrder)
{
    InstallVerifiers();
    const std::tuple<const char*, const char*, const char*, Status, const char*> cases[] = {
        {"0", "G800", "rvj=0", ToviCheckProcessor::StatusUnaltered, "R"},
        {"0", "X1", "rvj=0", ToviCheckProcessor::StatusError, ""},
        {"2", "X1", "hash=0", ToviCheckProcessor::StatusAltered, "J"},
        {"0,1", "G800", "rvj=2 hash=1", ToviCheckProcessor::StatusOutsideTarget, "R"},
        {"0,1", "X1", "rvj=1 hash=1", ToviCheckProcessor::StatusUnaltered, "J"},
        {"0,2,1", "G800", "rvj=7 hash=-305", ToviCheckProcessor::StatusOutsideTarget, "RJJ"},
        {"0,2,1", "G800", "rvj=1 hash=1", ToviCheckProcessor::StatusAltered, "R"},
        {"1,1", "X1", "hash=-303", ToviCheckProcessor::StatusOutsideTarget, "JJ"},
        {"1,0", "X1", "hash=-304", ToviCheckProcessor::StatusOutsideTarget, "J"},
        {"1,0", "G600", "hash=-304 rvj=7", ToviCheckProcessor::StatusError, "JR"},
        {"", "G800", "rvj=0 hash=1", ToviCheckProcessor::StatusError, ""},
        {"0,,1", "G700", "rvj=7 hash=1", ToviCheckProcessor::StatusUnaltered, "RJ"},
        {",9,258, 1,-255,", "X1", "hash=7", ToviCheckProcessor::StatusError, "JJJ"},
        {"9,9,9,9,9,9,9,9,9,1,0", "G800", "rvj=0 hash=7", ToviCheckProcessor::StatusError, "J"},
        {"99999999999999999999", "X1", "hash=1", ToviCheckProcessor::StatusError, ""},
    };
    ToviImageCheckCommon chain(nullptr);
    for (const auto& [types, model, answers, status, asked] : cases) {
        chain.SetCheckCameraType(ParseEditCheckTypes(types));
        chain.SetFile(Photograph(model, answers).c_str());
        EXPECT_EQ(chain.CheckProcessedImage(), status) << types << model << answers;
        EXPECT_EQ(Asked(), asked) << types << model << answers;
    }
    chain.SetCheckCameraType({300, 256});
    EXPECT_EQ(chain.CheckProcessedImage(), ToviCheckProcessor::StatusError);
}

TEST_F(TamperCheck, ClaimsTheMakersCamerasAlone)
{
    ToviRicohImageChecker checker;
    const auto isTarget = [&](const CString& model) {
        return checker.IsTarget(Photograph(model, "").c_str());
    };
    for (const CString& model :
         {CString("G600"), CString("G700"), CString("G700 SE"), CString("G800"), CString("G800 SE"),
          CString(" 　 G700 SE　 　"), *Cp932::Encode("　G800　 ")}) {
        EXPECT_TRUE(isTarget(model)) << model;
    }
    for (const char* model : {"G700SE", "G700　SE", "g800", "G900", "G8000", "　 ", ""}) {
        EXPECT_FALSE(isTarget(model)) << model;
    }
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
        {"no files",
         [this] {
             mkfifo(temp.Path("program/JACICCHS.so").c_str(), 0600);
             temp.Write("program/RVRFYJPG.so", "");
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
}
} // namespace
