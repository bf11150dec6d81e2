/* How the functions of vxsign are declared: visible in the library, with C names. */
#ifndef VXSIGN_EXPORT_H
#define VXSIGN_EXPORT_H

#include <stddef.h>
#include <stdint.h>
#include <stdio.h>

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

#ifdef __cplusplus
#define VXSIGN_BEGIN extern "C" {
#define VXSIGN_END }
#else
#define VXSIGN_BEGIN
#define VXSIGN_END
#endif

#endif
