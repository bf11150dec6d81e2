/* Tickers: data that runs through the sign's three buffers, two of which show while the third receives.
 *
 * What the values of the start functions and the bytes of a buffer mean is the sign's; they go over as they are.
 */
#ifndef VXSIGN_TICKER_H
#define VXSIGN_TICKER_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* Starts the ticker that runs what is uploaded, and stops it. */
VXSIGN_API uint32_t vxTickerStart(uint8_t first, uint8_t second, uint8_t third);
VXSIGN_API uint32_t vxTickerStop(void);

/* Which buffer can receive: status becomes VX_BUFFER_3_READY, VX_BUFFER_1_READY or VX_BUFFER_1_READY_TOO;
 * vxErrorDesc has the words. A sign that answers without such a word gives 0 too, and status stays as it was. */
VXSIGN_API uint32_t vxGetBufferStatus(VX_OUT uint16_t* status);

/* Sends length bytes into the receiving buffer, in packets of dataSize (vxApiConfig), 65535 of them at most. onProgress
 * is called after each with the percentage so far. VX_ARGUMENTS for a length of 0. */
VXSIGN_API uint32_t vxUploadBuffer(VX_BYTES(length) const uint8_t* data, uint32_t length);

/* The ticker that the sign runs by itself. */
VXSIGN_API uint32_t vxOffLineTickerStart(uint8_t first, uint8_t second, uint8_t third, uint8_t fourth);
VXSIGN_API uint32_t vxOffLineTickerStop(void);

VXSIGN_END

#endif
