/**
 * Records filled from the catalogue alone: every field that goes over the wire gets a value of its own, and
 * what comes back can be compared with it. Nothing here knows a message but where its fields choose a form.
 */
#ifndef EXAMPLES_SAMPLE_H
#define EXAMPLES_SAMPLE_H

#include "message_link.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace demo {

/** A block of memory that any record may lie in. */
using Block = std::vector<std::max_align_t>;

/** A message of the catalogue, and what is known of it for one kind. */
struct CatalogueMessage
{
    int index = 0;
    int kind = ZEL_KIND_REQUEST;
    ZEL_CATALOGUE_ENTRY entry{};
};

/** One attribute, with the places of its field in all rows. */
struct SampleField
{
    ZEL_FORM form = ZEL_FORM_NUMBER;
    ZEL_DIRECTION direction = ZEL_WRITTEN_AND_READ;
    bool inExtension = false;
    std::size_t size = 0;
    std::string attribute;
    std::vector<std::size_t> offsets;
};

/** The attributes of a message, in their order. */
std::vector<SampleField> fieldsOf(const CatalogueMessage& message);

struct Sample
{
    Block record;
    Block extension;

    void* get()
    {
        return record.empty() ? nullptr : record.data();
    }
};

/** The same bytes for the same message and seed, in any process. */
Sample makeSample(const CatalogueMessage& message, int seed);

/** Raw bytes that go behind the text of a frame, as many as its record announces. */
Composed composeSample(const ZEL_PROTOCOL_HEADER& header, const CatalogueMessage& message, Sample& sample,
                       Cipher& cipher);

/** Whether a field has the expected value, or is absent in what was found. */
bool isSame(const SampleField& field, const char* expected, const char* found);

/** Whether what came in is what the sample holds, as far as the message carries it both ways. */
bool equals(const CatalogueMessage& message, Sample& sample, const Received& received);

} // namespace demo

#endif
