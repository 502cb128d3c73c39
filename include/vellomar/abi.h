/* SPDX-License-Identifier: MIT */
/* How functions are called across the interface: every export and every pointer to a function that
 * crosses it is marked, so that a host may be built with another convention as its default. */
#ifndef VELLOMAR_ABI_H
#define VELLOMAR_ABI_H

#if defined(_WIN32)
#  define VELLOMAR_ABI __cdecl
#else
#  define VELLOMAR_ABI
#endif

#endif /* VELLOMAR_ABI_H */
