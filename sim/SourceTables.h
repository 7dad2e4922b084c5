#pragma once

#include <cstddef>
#include <string>

namespace rxsim {

// Source tables as an NTRIP caster serves them, for the simulated receiver's NTRIP client, tests
// and benchmarks. The same arguments always give the same table.
// `streams` STR records spread over Europe, with a CAS and a NET record, ended by
// "ENDSOURCETABLE". With `malformed`, lines no caster should send are mixed in: garbage, a
// record without a mount point, short and overlong records, an unterminated quote, a line longer
// than any record.
std::string MakeSourceTable(std::size_t streams, bool malformed = false);

} // namespace rxsim
