#include "sample/SampleFaults.h"
#include "sample/SampleOptionRows.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <stdexcept>

#include <unistd.h>

namespace
{
enum ExitCode
{
    Success = 0,
    Failure = 1,
    WrongUsage = 2
};

constexpr auto shiftJisName = "shift_jis";
constexpr auto utf8Name = "utf-8";
constexpr auto listName = "list";

struct Arguments
{
    CString folder;
    SampleOptions options{.photos = 60};
    /// Negative: as many as befit the photographs.
    int drawings = -1;
    CString encoding = shiftJisName;
    bool noImages = false;
    std::vector<CString> faults;
};

CString CheckSection(const CString& section)
{
    if (FindSampleSchema(section) != nullptr) return {};
    CString known;
    for (const SampleSchema& schema : SampleSchemas()) {
        known.append(known.empty() ? "" : ", ").append(schema.section);
    }
    return "\"" + section + "\" is no kind of delivery, choose one of " + known;
}

const char* HelpOf(std::string_view name)
{
    return std::ranges::find(sampleOptionRows, name, &SampleOptionRow::name)->help;
}

CString CheckFault(const CString& name)
{
    if (name == listName || FindSampleFault(name) != nullptr) return {};
    return "\"" + name + "\" is no fault, --fault list lists them";
}

void ListFaults()
{
    for (const SampleFault& fault : SampleFaults()) {
        std::cout << fault.name << '\t' << fault.rule << '\t' << fault.what << '\n';
    }
}

void Declare(CLI::App& app, Arguments& arguments)
{
    SampleOptions& options = arguments.options;
    const CLI::Range count(0, 9'999'999);
    const auto add = [&app](const char* name, auto& target) {
        return app.add_option(name, target, HelpOf(name));
    };
    add("FOLDER", arguments.folder);
    add("--section", options.section)
        ->check(CLI::Validator(CheckSection, "KIND"))
        ->capture_default_str();
    add("--photos", options.photos)->check(count)->capture_default_str();
    add("--drawings", arguments.drawings)->check(count);
    add("--discs", options.discs)->check(CLI::Range(1, 99))->capture_default_str();
    add("--encoding", arguments.encoding)
        ->check(CLI::IsMember({shiftJisName, utf8Name}, CLI::ignore_case))
        ->capture_default_str();
    add("--fault", arguments.faults)->delimiter(',')->check(CLI::Validator(CheckFault, "NAME"));
    app.add_flag("--tidy", options.tidy, HelpOf("--tidy"));
    app.add_flag("--no-images", arguments.noImages, HelpOf("--no-images"));
    add("--seed", options.seed)->capture_default_str();
}

/// A list needs no folder.
void RequireFolder(const Arguments& arguments)
{
    const bool isList = std::ranges::find(arguments.faults, listName) != arguments.faults.end();
    if (arguments.folder.empty() && !isList) throw CLI::RequiredError("FOLDER");
}

/// Turns what was given into the options of the builder.
void Complete(Arguments& arguments)
{
    SampleOptions& options = arguments.options;
    options.drawings = arguments.drawings >= 0 ? arguments.drawings : options.photos / 6;
    options.images = !arguments.noImages;
    const bool utf8 = EqualNoCase(arguments.encoding, utf8Name);
    options.encoding = utf8 ? SampleEncoding::Utf8 : SampleEncoding::ShiftJis;
}

/// Why the delivery can't be put into \p folder; empty when it can.
CString FolderProblem(const CString& folder)
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::file_type type = fs::status(folder, error).type();
    if (type == fs::file_type::not_found) return {};
    if (type != fs::file_type::directory && !error) return "is a file, choose another name";
    const bool empty = !error && fs::is_empty(folder, error);
    if (error) return "can't be read (" + error.message() + "), choose another folder";
    return empty ? CString() : "is not empty, choose a new folder or empty this one";
}

/// Shows how far the work is, where somebody looks at it.
void ShowProgress(int done, int all)
{
    static const bool onTerminal = isatty(STDERR_FILENO) != 0;
    const int step = std::max(1, all / 200);
    if (!onTerminal || (done % step != 0 && done != all)) return;
    std::fprintf(stderr, "%d of %d photographs%c", done, all, done == all ? '\n' : '\r');
}

int Run(const Arguments& arguments)
{
    if (std::ranges::find(arguments.faults, listName) != arguments.faults.end()) {
        ListFaults();
        return Success;
    }
    if (const CString problem = FolderProblem(arguments.folder); !problem.empty()) {
        std::cerr << "tovi-sample: \"" << arguments.folder << "\" " << problem << ".\n";
        return Failure;
    }
    const int photos = arguments.options.photos;
    try {
        std::vector<const SampleFault*> faults;
        for (const CString& name : arguments.faults) faults.push_back(FindSampleFault(name));
        WriteFaultySample(arguments.options, faults, arguments.folder,
                          [photos](int done) { ShowProgress(done, photos); });
    } catch (const std::invalid_argument& error) {
        std::cerr << "tovi-sample: " << error.what() << ".\n";
        return WrongUsage;
    } catch (const std::runtime_error& error) {
        std::cerr << "tovi-sample: " << error.what()
                  << "; make room or choose a folder that can be written.\n";
        return Failure;
    }
    return Success;
}
} // namespace

int main(int argc, char** argv)
{
    CLI::App app("Makes a sample delivery of site photographs.", "tovi-sample");
    Arguments arguments;
    Declare(app, arguments);
    try {
        app.parse(argc, argv);
        RequireFolder(arguments);
    } catch (const CLI::CallForHelp& help) {
        return app.exit(help);
    } catch (const CLI::ParseError& error) {
        std::cerr << "tovi-sample: " << error.what() << "; tovi-sample --help tells more.\n";
        return WrongUsage;
    }
    Complete(arguments);
    return Run(arguments);
}
