// vrk_version.h - version words (a pair of signed 32-bit parts, compared
// high part first) and the version resource of any file.
#ifndef VRK_VERSION_H
#define VRK_VERSION_H

#include "vrkdefs.h"

struct tagVersionWord {
  LONG high;
  LONG low;
};

VRK_API int operator==(tagVersionWord a, tagVersionWord b);
VRK_API int operator<(tagVersionWord a, tagVersionWord b);
VRK_API int operator>(tagVersionWord a, tagVersionWord b);

// The version resource of the last file loaded, and its string values under
// the first translation. The compiler's copy and assignment copy the members
// as they are, pointers included: a copy shares the version data and must be
// used only while the original still owns it, and never be destroyed after a
// load (both would free the same block).
class VRK_API VrkFileVersionInfo {
public:
  VrkFileVersionInfo();
  virtual ~VrkFileVersionInfo();

  // Loads the version resource of the file; TRUE when it has a fixed record
  // with the right signature and a translation table. NULL gives FALSE.
  int GetFileVersionInfoA(const char* pszFile);
  // The value of "\StringFileInfo\<lang><codepage>\<key>" under the first
  // translation; empty when nothing is loaded or the key is missing.
  CString GetValue(const char* pszKey);

  const VS_FIXEDFILEINFO* GetFixedInfo() const { return m_pFixedInfo; }

protected:
  CString m_strFileName; // compared with the next file; never assigned
  BYTE* m_pVersionData;
  WORD* m_pTranslation; // language word, code-page word
  VS_FIXEDFILEINFO* m_pFixedInfo;
};

#endif // VRK_VERSION_H
