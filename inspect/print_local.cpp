#include "inspect/command.h"
namespace inspect { void print(std::ostream& out, const Message& m, const JsonOptions& o){ out << toJson(m,o).dump() << '\n'; } }
