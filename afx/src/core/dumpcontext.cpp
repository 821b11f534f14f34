// CDumpContext: diagnostic text to the debugger or to a file.
#include <afx.h>

#include <stdio.h>

AFX_API CDumpContext afxDump;

CDumpContext::CDumpContext(CFile* pFile) : m_nDepth(0), m_pFile(pFile) {}

void CDumpContext::OutputString(LPCSTR lpsz) {
  if (lpsz == NULL) lpsz = "(NULL)";
  if (m_pFile == NULL) {
    OutputDebugStringA(lpsz);
    return;
  }
  m_pFile->Write(lpsz, lstrlenA(lpsz));
}

void CDumpContext::Flush() {
  if (m_pFile != NULL) m_pFile->Flush();
}

CDumpContext& CDumpContext::operator<<(LPCSTR lpsz) {
  OutputString(lpsz);
  return *this;
}

CDumpContext& CDumpContext::operator<<(LPCWSTR lpsz) {
  if (lpsz == NULL) return *this << (LPCSTR)NULL;
  CString text(lpsz);
  return *this << (LPCSTR)text;
}

// Numbers are written as MFC writes them: decimal, and hexadecimal for
// handles and pointers.
template <typename T> static CDumpContext& Print(CDumpContext& dc, const char* format, T value) {
  char text[64];
  snprintf(text, sizeof(text), format, value);
  return dc << (LPCSTR)text;
}

CDumpContext& CDumpContext::operator<<(const void* lp) { return Print(*this, "$%p", lp); }
CDumpContext& CDumpContext::operator<<(BYTE by) { return Print(*this, "%u", (unsigned)by); }
CDumpContext& CDumpContext::operator<<(WORD w) { return Print(*this, "%u", (unsigned)w); }
CDumpContext& CDumpContext::operator<<(UINT u) { return Print(*this, "%u", u); }
CDumpContext& CDumpContext::operator<<(LONG l) { return Print(*this, "%ld", l); }
CDumpContext& CDumpContext::operator<<(DWORD dw) { return Print(*this, "%lu", dw); }
CDumpContext& CDumpContext::operator<<(int n) { return Print(*this, "%d", n); }
CDumpContext& CDumpContext::operator<<(float f) { return Print(*this, "%g", (double)f); }
CDumpContext& CDumpContext::operator<<(double d) { return Print(*this, "%g", d); }
CDumpContext& CDumpContext::operator<<(LONGLONG n) { return Print(*this, "%lld", n); }
CDumpContext& CDumpContext::operator<<(ULONGLONG n) { return Print(*this, "%llu", n); }
CDumpContext& CDumpContext::operator<<(HWND h) { return *this << (const void*)h; }
CDumpContext& CDumpContext::operator<<(HDC h) { return *this << (const void*)h; }
CDumpContext& CDumpContext::operator<<(HMENU h) { return *this << (const void*)h; }
CDumpContext& CDumpContext::operator<<(HACCEL h) { return *this << (const void*)h; }
CDumpContext& CDumpContext::operator<<(HFONT h) { return *this << (const void*)h; }

CDumpContext& CDumpContext::operator<<(const CObject* pOb) {
  if (pOb == NULL) return *this << "NULL";
  pOb->Dump(*this);
  return *this;
}

CDumpContext& CDumpContext::operator<<(const CObject& ob) { return *this << &ob; }

void CDumpContext::HexDump(LPCSTR lpszLine, BYTE* pby, int nBytes, int nWidth) {
  if (pby == NULL || nBytes <= 0) return;
  if (nWidth <= 0) nWidth = 16;
  for (int i = 0; i < nBytes; i++) {
    if (i % nWidth == 0) {
      if (i != 0) *this << "\n";
      *this << (lpszLine ? lpszLine : "");
    }
    char text[8];
    snprintf(text, sizeof(text), " %02X", pby[i]);
    *this << (LPCSTR)text;
  }
  *this << "\n";
}
