#pragma once

/// A window of the host. The model only hands it on and never looks into it.
class CWnd;
