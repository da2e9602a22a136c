#pragma once

#include "hosts/cli/Delivery.h"

/// Each adds one command to \p app. When the user has called it, the command runs in the end of
/// app.parse() and leaves the exit status in \p status.
void AddInfoCommand(CLI::App& app, int& status);
void AddPhotosCommand(CLI::App& app, int& status);
void AddTreeCommand(CLI::App& app, int& status);
void AddSelectCommand(CLI::App& app, int& status);
void AddSheetCommand(CLI::App& app, int& status);
void AddLabelCommand(CLI::App& app, int& status);
void AddCorrectCommand(CLI::App& app, int& status);
void AddRecordCommand(CLI::App& app, int& status);
void AddReturnCommand(CLI::App& app, int& status);
void AddExifCommand(CLI::App& app, int& status);
void AddValuesCommand(CLI::App& app, int& status);
void AddPairsCommand(CLI::App& app, int& status);
void AddSettingsCommand(CLI::App& app, int& status);
void AddVerifyCommand(CLI::App& app, int& status);
void AddIndexCommand(CLI::App& app, int& status);
void AddExportCommand(CLI::App& app, int& status);
void AddCombineCommand(CLI::App& app, int& status);
void AddReportCommand(CLI::App& app, int& status);
