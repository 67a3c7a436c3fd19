#pragma once

namespace qlon {

// `qlon sync --to URL [--site NAME]` and `qlon report main|items-sold --chain URL [--sites A,B|all]`:
// the commands of the chain database, which need no screen and no display, run by `qlon-chain` in
// `qlon`'s place. The status to end with.
int RunChainCommand(int argc, char *argv[]);

} // namespace qlon
