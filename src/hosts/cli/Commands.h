#pragma once

#include "hosts/cli/CommandLine.h"

Command InfoCommand();
Command PhotosCommand();
Command TreeCommand();
Command SelectCommand();
Command SheetCommand();
Command LabelCommand();
Command CorrectCommand();
Command RecordCommand();
Command ReturnCommand();
Command ExifCommand();
Command ValuesCommand();
Command PairsCommand();
Command SettingsCommand();
Command VerifyCommand();
Command IndexCommand();
Command ExportCommand();
Command CombineCommand();
Command ReportCommand();
Command CheckCommand();
Command DatesCommand();
Command CoverageCommand();
Command SampleCommand();
Command DoublesCommand();
Command RegisterCommand();

/// The whole program. What --profile names comes to stand in \p profile, which outlives it.
Program AllOfTovi(std::string& profile);
