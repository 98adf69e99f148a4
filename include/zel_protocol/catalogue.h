/**
 * The catalogue: every message that this library knows, for tools, tests and applications that want to loop
 * over them, and what each is made of. An application that calls none of these functions doesn't pay for
 * them: a static link leaves them and their names out.
 *
 * All functions are pure and may run in any number of threads at once.
 */
#ifndef ZEL_PROTOCOL_CATALOGUE_H
#define ZEL_PROTOCOL_CATALOGUE_H

#include <stddef.h>

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** What may follow a message's text. */
typedef enum ZEL_BEHIND
{
    ZEL_BEHIND_NOTHING,
    ZEL_BEHIND_RAW_DATA,     /**< an end code of four zero bytes and as much data as the record announces */
    ZEL_BEHIND_FEATURE_BLOCK /**< four bytes, and 512 or 1024 bytes of a face's features */
} ZEL_BEHIND;

/** One message. All pointers are to constants of the library. */
typedef struct ZEL_CATALOGUE_ENTRY
{
    const char* Msg_type;
    char Msg_code[32];                      /**< as it stands in a header; empty where any code will do */
    const char* word;                       /**< the command word of a PTZ message, else NULL */
    int32_t alarm_code;                     /**< the Alarm_code that selects an alarm's extension, else -1 */
    const char* operation;                  /**< name of the message's analysis function, NULL without one */
    const char* record;                     /**< the record's name, NULL for a message without one */
    size_t record_size;                     /**< bytes; 0 without a record */
    int (*init)(void* record);              /**< the record's ..._init; NULL without a record */
    uint32_t kinds;                         /**< bit k is set if kind k (0 to 3) has a body */
    const char* extension;                  /**< name of the record on pExData, NULL without one */
    size_t extension_size;                  /**< bytes; 0 without an extension */
    int (*extension_init)(void* extension); /**< NULL without an extension */
    size_t pointer_at;                      /**< offset of the record's pExData or pData; 0: it has neither */
    ZEL_BEHIND behind;
    int is_bare; /**< 1: goes out as bare text, without a frame */
} ZEL_CATALOGUE_ENTRY;

/** How a field stands in a text. The field's size tells the number's width, and its absent value. */
typedef enum ZEL_FORM
{
    ZEL_FORM_NUMBER,      /**< the type's own: %d of an int32_t, %u or %llu of an unsigned type */
    ZEL_FORM_SIGNED,      /**< %d or %lld of an unsigned type */
    ZEL_FORM_HEX,         /**< %x or %llx */
    ZEL_FORM_ATOI,        /**< %d, read with atoi: a text without a number is 0 */
    ZEL_FORM_FLOAT,       /**< %f */
    ZEL_FORM_TEXT,        /**< %s, cut to leave room for the terminator when read */
    ZEL_FORM_WHOLE_TEXT,  /**< %s, fills its field to the last byte when read */
    ZEL_FORM_CLOCK,       /**< %02d:%02d:%02d */
    ZEL_FORM_PLAIN_CLOCK, /**< %d:%d:%d */
    ZEL_FORM_WEEK_CLOCK,  /**< %2d:%2d:%2d:%2d:%2d */
    ZEL_FORM_NUMBERS,     /**< %d,%d or longer */
    ZEL_FORM_BRACKETS,    /**< [%d,%d] */
    ZEL_FORM_RESOLUTION,  /**< %d*%d */
    ZEL_FORM_PERIODS,     /**< [%02d:%02d:%02d-%02d:%02d:%02d], for each */
    ZEL_FORM_COORDINATES, /**< [%d,%d], for each */
    ZEL_FORM_LIST,        /**< %d and a comma for each */
    ZEL_FORM_JOINED_LIST, /**< %d for each, commas between them */
    ZEL_FORM_TEXT_LIST,   /**< %s and a comma for each */
    ZEL_FORM_OWN          /**< a form that no other message has: see its record */
} ZEL_FORM;

/** Who has an attribute. */
typedef enum ZEL_DIRECTION
{
    ZEL_WRITTEN_AND_READ,
    ZEL_ONLY_WRITTEN,
    ZEL_ONLY_READ
} ZEL_DIRECTION;

/** One element or attribute of a message, for a ZEL_DESCRIBE. */
typedef struct ZEL_DESCRIPTION
{
    const char* path; /**< elements from the body down, "SmartConfig/RegionDetection"; empty: the body, where
                         what is written stands beside the elements as a line of text */
    const char* attribute; /**< its name; NULL: the element itself; empty: the element's text */
    ZEL_DIRECTION direction;
    /* Of an attribute or a text: */
    ZEL_FORM form;
    int in_extension; /**< 1: the field lies in the extension, else in the record */
    size_t offset;    /**< of the field; of its first row's where there are rows */
    size_t size;      /**< bytes of the field */
    int is_skipped;   /**< 1: not written at its absent value */
    /* Of an element: */
    size_t rows;     /**< how many there may be side by side, each from a row of its own; 0: no rows */
    size_t row_size; /**< bytes from one row to the next */
} ZEL_DESCRIPTION;

/** Receives one description; it and its texts live until the function returns. */
typedef void (*ZEL_DESCRIBE)(void* context, const ZEL_DESCRIPTION* description);

/** How many messages there are. */
ZEL_API int ZelProtocolCatalogueCount(void);

/**
 * Fills in the message of an index, in the order of types and codes.
 *
 * @return 0, or ZEL_ERR_BAD_PARAM for a null pointer or an index outside 0 to the count.
 */
ZEL_API int ZelProtocolCatalogueEntry(int index, ZEL_CATALOGUE_ENTRY* entry);

/**
 * Finds a message as a header names it.
 *
 * @param code  as in a header: a number in any form that the analysis takes, or a word.
 * @param word  the command word of a PTZ message; NULL for any other message, and for the first of a family.
 * @param alarm_code  of an alarm; -1 for an alarm without an extension, and for any other message.
 * @return its index, or ZEL_ERR_UNKNOWN_MSG, or ZEL_ERR_BAD_PARAM for a null type or code.
 */
ZEL_API int ZelProtocolCatalogueFind(const char* type, const char* code, const char* word, int alarm_code);

/**
 * Describes a message: each element and each attribute, in the order in which they are written. What is only
 * read comes behind what is written. Of rows the first stands for all. Needs a block of the record's size
 * while it runs.
 *
 * @param index     of the message.
 * @param kind      0 to 3: what is written for this kind, and what an analysis reads of it.
 * @param describe  is called for each.
 * @return 0; ZEL_ERR_BAD_PARAM for a null function, an index or a kind that there isn't; ZEL_ERR_NO_MEMORY.
 */
ZEL_API int ZelProtocolCatalogueDescribe(int index, int kind, ZEL_DESCRIBE describe, void* context);

#ifdef __cplusplus
}
#endif

#endif
