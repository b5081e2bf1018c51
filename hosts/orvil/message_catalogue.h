// The message maps of files, put together.
#pragma once

#include <map>
#include <string>

#include "orvil/messages/message_manager.h"
#include "orvil/tokens/lex_token_block.h"

namespace orvil_host {

class MessageCatalogue {
public:
    // Adds the maps of a file; of two with the same code the first stays. False when the file does not read whole.
    // That, and everything in the file that makes no map or no message, is said on standard error.
    bool add(const std::string& path);

    const CMessageManager& maps() const { return maps_; }

    // The text of a program-wide error number, or null.
    const char* text_of(int number) const;

private:
    void add_block(const std::string& path, const CLexTokenBlock& block);

    CMessageManager maps_;
    std::map<int, std::string> files_;  // by map code: the file that the map came from
};

}  // namespace orvil_host
