#include "orvil/files/current_directory.h"

#include <cstdlib>

#include "files/owned_text.h"
#include "platform/platform.h"

static_assert(sizeof(CCurrentDirectory) == 16);

CCurrentDirectory::CCurrentDirectory() : directory_(orvil::detail::working_folder_text().release()) {
}

CCurrentDirectory::~CCurrentDirectory() {
    orvil::platform::change_folder(directory_);
    std::free(directory_);
}
