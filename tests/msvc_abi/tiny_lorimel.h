/* SPDX-License-Identifier: MIT */
/* What the tiny widget library has been given, for the test that loads it. Plain C: the library is
 * compiled for the Microsoft C++ ABI, the test for MinGW's, and only the interface of the widget
 * library itself is for both. */
#ifndef TINY_LORIMEL_H
#define TINY_LORIMEL_H

#include <stdint.h>

enum { kTinyTextSize = 64, kTinyPushes = 256 };

/* A record as it lay in memory. */
typedef struct TinyRecord {
  unsigned char bytes[56];
  char text[kTinyTextSize]; /* what its label pointed to */
} TinyRecord;

typedef struct TinyReceived {
  int32_t wrongThis; /* calls of members with another `this` than GetInstance answered */

  char title[kTinyTextSize];
  int64_t x, y, width, height;
  int32_t paramsCount, type;
  uint8_t unused, simplify;
  TinyRecord first, last; /* of the array */

  void* shownHandle;
  uint8_t shown;
  uint64_t duration;
  int32_t volume;
  int32_t tipKey, tipNumber;
  char tip[kTinyTextSize];
  uint8_t tipFlagA, tipFlagC;

  int32_t pushes;
  TinyRecord pushed[kTinyPushes]; /* in order; further ones are counted only */
} TinyReceived;

/* Exports of the library, besides the class. */
typedef const TinyReceived* TinyGetReceived(void);
/* The user presses the button: the plug-in's event callback is called with the record. */
typedef void TinyPress(int32_t key, int32_t status);
/* Opens a list: answers its length and copies the label of its last row. */
typedef int32_t TinyOpen(int32_t key, char* lastText);

#endif /* TINY_LORIMEL_H */
