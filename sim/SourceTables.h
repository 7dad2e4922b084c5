#pragma once

#include <QString>
#include <cstddef>
#include <optional>
#include <string_view>

namespace rxsim {

// Source tables as an NTRIP caster serves them, for the simulated receiver's NTRIP client, tests
// and benchmarks. The same arguments always give the same table.
// `streams` STR records spread over Southeast Asia, with a CAS and a NET record, ended by
// "ENDSOURCETABLE". With `malformed`, lines no caster should send are mixed in: garbage, a
// record without a mount point, short and overlong records, an unterminated quote, a line longer
// than any record.
QString MakeSourceTable(std::size_t streams, bool malformed = false);

// The table the simulated receiver fetches from the caster at `host`: "large.<any>" serves
// 5,000 streams, "broken.<any>" a table with malformed lines; other hosts the model's own table
// (nothing here).
std::optional<QString> CasterSourceTable(std::string_view host);

} // namespace rxsim
