#pragma once

#include "platform/text/Text.h"

/// The places of the user, most of which registry texts may name. All without a trailing separator;
/// empty when there is no such folder.
struct UserFolders
{
    /// What stands for the drive of the system in front of "/...": nothing on this platform, where
    /// the root of the file system takes its place.
    CString windowsDrive;
    CString documents;
    CString desktop;
    /// The folder for temporary files, without symbolic links.
    CString temporary;
    /// Our folder for what can be made again. It needs not be there.
    CString cache;
};

/// The folders of the user that runs the program, as the desktop's settings name them. Documents
/// and desktop fall back on the folders that are usual, then on the home folder.
TOVI_EXPORT UserFolders CurrentUserFolders();

/// A folder of ours in the folder \p temporary that nobody else can reach into; empty when it can't
/// be made, or when somebody else has put something in its place.
TOVI_EXPORT CString PrivateTemporaryFolder(const CString& temporary);

/// The full path for our configuration file \p name of this user; empty when the user has no home
/// folder.
CString ConfigurationFile(std::string_view name);

/// The full path for our folder \p name with what this user's programs keep from one run to the
/// next; empty when the user has no home folder. It needs not be there.
CString StateFolder(std::string_view name);

/// The same for what the user has put there and may want to carry to another machine.
CString DataFolder(std::string_view name);

/// Makes the folder \p path, with those above it, for this user alone. True when it is there
/// afterwards.
bool MakePrivateFolder(const CString& path);
