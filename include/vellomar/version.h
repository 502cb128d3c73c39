/* SPDX-License-Identifier: MIT */
/* Which interface these headers describe. The one place where the version stands: the build reads
 * it from here.
 *
 *     #if VELLOMAR_ABI_VERSION != 1
 *     #  error "written for another interface of the control bar"
 *     #endif
 */
#ifndef VELLOMAR_VERSION_H
#define VELLOMAR_VERSION_H

/* Of the headers and the library, by the rules of semantic versioning. */
#define VELLOMAR_VERSION_MAJOR 0
#define VELLOMAR_VERSION_MINOR 1
#define VELLOMAR_VERSION_PATCH 0
#define VELLOMAR_VERSION "0.1.0"

/* Of the binary interface: exports, records, ids, the members of the widget library. It rises by
 * one with every change that a program built before would notice; docs/abi.md says what counts. */
#define VELLOMAR_ABI_VERSION 1
#define VELLOMAR_ABI_VERSION_TEXT "1"

#endif /* VELLOMAR_VERSION_H */
