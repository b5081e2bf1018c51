// The assignments of a file's blocks as tables of two columns.
#pragma once

#include <deque>
#include <string>

#include "orvil/params/container_tree.h"
#include "orvil/params/typed_records.h"
#include "orvil/tokens/lex_token_block.h"

namespace orvil_host {

// One container a block that assigns something, in the order of the file. Containers of blocks in blocks have names
// with dots, as in "Output.Page"; blocks of the same name share one, and the last assignment of a name counts.
class ParameterTables {
public:
    ParameterTables();
    ~ParameterTables();
    ParameterTables(const ParameterTables&) = delete;
    ParameterTables& operator=(const ParameterTables&) = delete;

    // Takes the assignments of all blocks in a file. False when memory runs out.
    bool add_blocks(const CLexTokenBlock& file);

    bool is_empty() const { return sets_.empty(); }

    // Prints one table. False when no block of that name assigns anything.
    bool print(const std::string& name) const;

    // Prints all tables, with an empty line between them.
    void print_all();

private:
    bool add_block(const std::string& name, const CLexTokenBlock& block);
    vpr_set_t* set_of(const std::string& name);

    vpdp_root_t root_;
    std::deque<vpr_set_t> sets_;  // what the containers are built from
};

}  // namespace orvil_host
