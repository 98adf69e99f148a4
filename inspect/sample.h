/** Messages with plausible values, for documents, for a first try, and for tests that need all fields. */
#ifndef ZEL_INSPECT_SAMPLE_H
#define ZEL_INSPECT_SAMPLE_H

#include "inspect/message.h"

namespace inspect {

// Every field that goes over the wire for this kind has a value, the first row of each array, and raw data is
// as long as the record announces it. Always the same for the same message and kind.
Message sampleMessage(int index, int kind);

} // namespace inspect

#endif
