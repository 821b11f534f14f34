// oleimpl.h - helpers shared by afx's OLE data-transfer sources.
#ifndef AFX_OLEIMPL_H
#define AFX_OLEIMPL_H

#include <afxole.h>

// The FORMATETC to use: a copy of *lpFormatEtcIn when given (with cfFormat
// set), else cfFormat, no target device, content aspect, index -1 and
// tymedDefault.
void AfxOleFillFormatEtc(FORMATETC& formatEtc, CLIPFORMAT cfFormat, const FORMATETC* lpFormatEtcIn,
                         DWORD tymedDefault);

// A new movable block with the bytes of hSrc (its whole GlobalSize); NULL when
// hSrc is NULL, cannot be locked, or memory runs out.
HGLOBAL AfxOleCopyGlobal(HGLOBAL hSrc);

// The whole contents of a stream (from its start) in a new movable block of
// exactly that size (1 byte for an empty stream); NULL when the stream cannot
// be read or holds more than nMaxBytes.
HGLOBAL AfxOleGlobalFromStream(IStream* pStream, ULONGLONG nMaxBytes);

#endif // AFX_OLEIMPL_H
