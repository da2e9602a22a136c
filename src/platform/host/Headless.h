#pragma once

/// Makes sure that text can be drawn: without a host that runs Qt itself, its drawing services are
/// started here, with no window and no display.
void EnsureGui();

/// Keeps Qt's own remarks on files and the environment off the standard error of a host that
/// doesn't run Qt itself.
void EnsureQuiet();
