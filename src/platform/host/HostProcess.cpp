#include "platform/host/HostProcess.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cstdio>
#include <iostream>

void PrepareHostProcess()
{
    signal(SIGXFSZ, SIG_IGN);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) >= 0) continue;
        // Open the wrong way round, so that whoever uses it is told; it gets the lowest free
        // number.
        open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

bool StandardOutputHasArrived()
{
    std::cout.flush();
    const bool written = std::cout.good() && std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
    // A file system of the network tells of a full disk only on a close.
    return close(dup(STDOUT_FILENO)) == 0 && written;
}
