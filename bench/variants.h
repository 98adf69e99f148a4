// The same message with other values, as a device sends it time and again.
#ifndef ZEL_BENCH_VARIANTS_H
#define ZEL_BENCH_VARIANTS_H

#include "samples.h"

namespace bench {

constexpr size_t kVariants = 128;

// Samples whose numbers of one to three digits differ from those of `payload`, the sample's own, and the
// lengths of its longer ones too. The same ones in every run.
std::vector<Sample> variantsOf(const Sample& sample, const std::string& payload);

} // namespace bench

#endif
