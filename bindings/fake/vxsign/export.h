/* What stands in for the header of that name when the generator reads the others: the marks survive as alignments,
 * which no declaration of the library has, and the types of the system are only named. */
#define VXSIGN_API
#define VXSIGN_PRINTF(formatNumber, firstNumber)
#define VXSIGN_BEGIN
#define VXSIGN_END

#define VX_OUT _Alignas(isOut)
#define VX_INOUT _Alignas(isInOut)
#define VX_OPTIONAL _Alignas(isOptional)
#define VX_BYTES(n) _Alignas(bytes(n))
#define VX_COUNT(n) _Alignas(count(n))
#define VX_PATH _Alignas(isPath)
#define VX_SIGN_TEXT _Alignas(isSignText)

typedef int int8_t, uint8_t, int16_t, uint16_t, int32_t, uint32_t, int64_t, uint64_t, size_t, FILE;
