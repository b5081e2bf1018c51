// What the program tells its caller when it ends.
#pragma once

namespace orvil_host {

enum ExitCode : int {
    kDone = 0,      // all that was asked for
    kFailed = 1,    // a file cannot be read, does not read whole or cannot be written, or a name is not there
    kRefused = 2,   // writing would lose or change something, so nothing was written
    kMisused = 64,  // the command line makes no sense
};

}  // namespace orvil_host
