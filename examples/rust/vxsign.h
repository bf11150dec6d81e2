/* What bindgen reads. */
#include <vxsign/vxsign.h>
