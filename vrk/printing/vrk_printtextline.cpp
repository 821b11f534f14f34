// VPrintTextLineParser: splits a printed text line into tokens at its
// control characters; a marker's attribute belongs to the token after it.
#include "vrk_printtextline.h"

#include <mbctype.h>
#include <mbstring.h>

namespace {

const char chLeader = 0x1C;
const char chRight = 0x1E;
const char chCentre = 0x1F;
const char chLineFeed = 0x0A;

// The bytes of the character at p: two for a lead byte, unless the trail
// byte is the terminating zero (a cut character must not step past it).
int CharBytes(const char* p) { return _ismbblead((unsigned char)p[0]) && p[1] != 0 ? 2 : 1; }

} // namespace

VPrintTextLineParser::VPrintTextLineParser()
    : m_pszPos(NULL), m_nStep(0), m_chLast(0), m_nFormat(0), m_bLeader(0), m_bNewLine(0) {}

VPrintTextLineParser::~VPrintTextLineParser() {}

int VPrintTextLineParser::GetProfile(const char* pszLine, VPTLPROFILE& profile) {
  if (pszLine == NULL) return 0;
  profile.bHasMarkers = _mbschr((const unsigned char*)pszLine, (unsigned char)chLeader) != NULL;
  return 1;
}

VNTRESULT VPrintTextLineParser::GetNextToken(const char* pszLine, VPTLTOKEN& token) {
  int nFormat = 0, bLeader = 0, bNewLine = 0;
  if (m_pszPos == NULL) {
    // A NULL line has no tokens; the parser stays unstarted (our choice).
    if (pszLine == NULL) return VNT_NOMORE;
    m_pszPos = pszLine;
  } else {
    if (m_chLast == 0) return VNT_NOMORE;
    nFormat = m_nFormat;
    bLeader = m_bLeader;
    bNewLine = m_bNewLine;
    m_nFormat = m_bLeader = m_bNewLine = 0;
  }

  token.strText.Empty();
  VNTRESULT result;
  for (;;) {
    for (; m_nStep > 0; m_nStep--)
      m_pszPos += CharBytes(m_pszPos);
    const char c = *m_pszPos;
    const char next = c != 0 ? m_pszPos[1] : 0;
    m_chLast = (unsigned char)c;
    m_nStep = 1;
    if (c == 0) {
      result = VNT_TOKEN;
      break;
    }
    if (c == chLineFeed) {
      m_nFormat = 0;
      m_bNewLine = 1;
      result = VNT_NEWLINE;
      break;
    }
    if (c == chLeader || c == chRight || c == chCentre) {
      if (next == c) { // doubled: one literal character
        token.strText += c;
        m_nStep = 2;
        continue;
      }
      if (c == chLeader) {
        m_bLeader = 1;
        continue;
      }
      m_nFormat = c == chRight ? 2 : 1; // DT_RIGHT, DT_CENTER
      result = VNT_TOKEN;
      break;
    }
    token.strText += CString(m_pszPos, CharBytes(m_pszPos));
  }
  token.nFormat = nFormat;
  token.bLeader = bLeader;
  token.bNewLine = bNewLine;
  return result;
}
