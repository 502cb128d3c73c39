/* SPDX-License-Identifier: MIT */
/* A compile-time check that a record lies in memory as the 32-bit interface fixes it.
 *
 *     VELLOMAR_FIXED_OFFSET(VellomarRect, width, 16)
 *
 * Where pointers have 8 bytes the records grow and keep their order; the check is then empty. */
#ifndef VELLOMAR_RECORD_LAYOUT_H
#define VELLOMAR_RECORD_LAYOUT_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
#  define VELLOMAR_STATIC_ASSERT static_assert
#else
#  define VELLOMAR_STATIC_ASSERT _Static_assert /* a keyword, so that no header is needed */
#endif

#if UINTPTR_MAX == 0xffffffffu
#  define VELLOMAR_FIXED_OFFSET(record, field, offset) \
    VELLOMAR_STATIC_ASSERT(offsetof(record, field) == (offset), #record "." #field " has moved");
#  define VELLOMAR_FIXED_SIZE(record, size) \
    VELLOMAR_STATIC_ASSERT(sizeof(record) == (size), #record " has another size");
#else
#  define VELLOMAR_FIXED_OFFSET(record, field, offset)
#  define VELLOMAR_FIXED_SIZE(record, size)
#endif

#endif /* VELLOMAR_RECORD_LAYOUT_H */
