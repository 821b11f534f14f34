// vrk_priv.h - state of VRK.dll that its own sources share but that is not
// exported to hosts.
#ifndef VRK_PRIV_H
#define VRK_PRIV_H

#include <afxwin.h>
#include <afxmt.h>

// The process-wide mutex made at process attach and destroyed at detach;
// NULL outside that span. The trace facility locks it (1000 ms time-out).
CMutex* VrkPrivGetMutex();

// The module's extension record, filled at process attach.
AFX_EXTENSION_MODULE& VrkPrivGetExtensionModule();

// The chosen language resource module (the holder's handle), NULL before
// attach or when the attach failed.
HINSTANCE VrkPrivGetResourceInstance();

#endif // VRK_PRIV_H
