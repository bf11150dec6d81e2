/* vxsign: control of LED variable-message signs over UDP, TCP or a serial line.
 *
 * A thread fills a vxApiConfig, hands it to vxInitAPI and then calls the functions of the families below. Each call
 * opens its channel, talks to the sign and closes the channel again; each returns a result word (result.h), 0 being
 * success. Output arguments are written on success only. Text is narrow and NUL terminated.
 *
 * Unless a function says otherwise it returns: 0 done; VX_ARGUMENTS for a null pointer or a request that does not
 * fit, with nothing sent; VX_COMMUNICATION when the thread has no configuration, the channel could not be opened or
 * every try failed; VX_ABORTED when abortFlag was set; VX_INCONSISTENT_SYNC for a reply whose status has no meaning;
 * or the code that the sign answered with. vxErrorDesc puts each into words. A block to send whose length is 0 needs
 * no pointer.
 */
#ifndef VXSIGN_VXSIGN_H
#define VXSIGN_VXSIGN_H

#include <vxsign/api.h>
#include <vxsign/content.h>
#include <vxsign/control.h>
#include <vxsign/directtile.h>
#include <vxsign/extra.h>
#include <vxsign/filesystem.h>
#include <vxsign/local.h>
#include <vxsign/log.h>
#include <vxsign/login.h>
#include <vxsign/modbus.h>
#include <vxsign/mover.h>
#include <vxsign/ondra.h>
#include <vxsign/pixel.h>
#include <vxsign/play.h>
#include <vxsign/player.h>
#include <vxsign/playlist.h>
#include <vxsign/properties.h>
#include <vxsign/quickshow.h>
#include <vxsign/read.h>
#include <vxsign/result.h>
#include <vxsign/status.h>
#include <vxsign/tarsis.h>
#include <vxsign/test.h>
#include <vxsign/ticker.h>
#include <vxsign/traffic.h>
#include <vxsign/video.h>
#include <vxsign/write.h>
#include <vxsign/xmodem.h>
#include <vxsign/zones.h>

#endif
