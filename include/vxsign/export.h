/* How the functions of vxsign are declared: visible in the library, with C names. */
#ifndef VXSIGN_EXPORT_H
#define VXSIGN_EXPORT_H

#include <stddef.h>
#include <stdint.h>
#include <stdio.h>

/* Windows has 64 bits here, and so one calling convention for functions and callbacks alike. */
#if defined(_WIN32) && !defined(_WIN64)
#error "vxsign.dll is for 64-bit programs"
#endif

#if defined(_WIN32)
#if defined(VXSIGN_BUILDING)
#define VXSIGN_API __declspec(dllexport)
#else
#define VXSIGN_API __declspec(dllimport)
#endif
#else
#define VXSIGN_API __attribute__((visibility("default")))
#endif

/* Lets the compiler check the arguments of a printf-like function; both numbers count from 1. */
#if defined(__GNUC__)
#define VXSIGN_PRINTF(formatNumber, firstNumber) __attribute__((format(printf, formatNumber, firstNumber)))
#else
#define VXSIGN_PRINTF(formatNumber, firstNumber)
#endif

/* What a declaration says of a pointer. The marks are empty: they are for readers, for the bindings and for the tests,
 * which take the size of each buffer from them. A pointer without VX_BYTES or VX_COUNT leads to one value, a pointer to
 * characters to a text up to its NUL, and void* without one is the caller's own and only handed on.
 *
 *   VX_OUT, VX_INOUT   the function writes there; with VX_INOUT it reads what is there first, or leaves a part of it.
 *                      Without either it only reads
 *   VX_OPTIONAL        may be null
 *   VX_BYTES(n)        room or length in bytes: a number or an expression over the other parameters, in C. Of a pointer
 *                      to a pointer it tells of what the second one leads to
 *   VX_COUNT(n)        the same in elements
 *   VX_PATH            path of this PC, in its encoding. On Windows that is the code page of the program: UTF-8 where
 *                      its manifest says so, else the ANSI code page
 *   VX_SIGN_TEXT       text that the sign sees, paths and names on it included: bytes in the encoding of the sign
 *
 * A text without VX_PATH and VX_SIGN_TEXT is ASCII. */
#define VX_OUT
#define VX_INOUT
#define VX_OPTIONAL
#define VX_BYTES(n)
#define VX_COUNT(n)
#define VX_PATH
#define VX_SIGN_TEXT

#ifdef __cplusplus
#define VXSIGN_BEGIN extern "C" {
#define VXSIGN_END }
#else
#define VXSIGN_BEGIN
#define VXSIGN_END
#endif

#endif
