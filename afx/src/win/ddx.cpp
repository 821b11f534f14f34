// Dialog data exchange and validation: CDataExchange, the DDX_ routines
// that move values between controls and members, and the DDV_ checks.
#include <afxwin.h>
#include <afxres.h>

#include <errno.h>
#include <float.h>
#include <stdio.h>

// ---- Formatting prompts -------------------------------------------------------

// Replaces %1..%9 in lpszFormat by the strings given; other text is copied.
static void FormatStrings(CString& rString, LPCTSTR lpszFormat, LPCTSTR const* rglpsz,
                          int nString) {
  rString.Empty();
  for (LPCTSTR p = lpszFormat; *p != '\0'; p++) {
    if (p[0] == '%' && p[1] >= '1' && p[1] <= '9' && p[1] - '1' < nString) {
      LPCTSTR lpsz = rglpsz[p[1] - '1'];
      rString += lpsz != NULL ? lpsz : "";
      p++;
    } else {
      rString += *p;
    }
  }
}

// String resources are at most 4,096 characters here; longer ones are cut.
static CString LoadPrompt(UINT nIDS) {
  TCHAR szFormat[4096];
  if (AfxLoadString(nIDS, szFormat, _countof(szFormat)) == 0) szFormat[0] = '\0';
  return CString(szFormat);
}

void AFXAPI AfxFormatString1(CString& rString, UINT nIDS, LPCTSTR lpsz1) {
  CString strFormat = LoadPrompt(nIDS);
  FormatStrings(rString, strFormat, &lpsz1, 1);
}

void AFXAPI AfxFormatString2(CString& rString, UINT nIDS, LPCTSTR lpsz1, LPCTSTR lpsz2) {
  LPCTSTR rglpsz[2] = {lpsz1, lpsz2};
  CString strFormat = LoadPrompt(nIDS);
  FormatStrings(rString, strFormat, rglpsz, 2);
}

// ---- CDataExchange -----------------------------------------------------------------

CDataExchange::CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate)
    : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDlgWnd), m_hWndLastControl(NULL),
      m_bEditLastControl(FALSE) {}

HWND CDataExchange::PrepareCtrl(int nIDC) {
  HWND hWndCtrl = ::GetDlgItem(m_pDlgWnd->GetSafeHwnd(), nIDC);
  if (hWndCtrl == NULL) AfxThrowNotSupportedException(); // no such control in the dialog
  m_hWndLastControl = hWndCtrl;
  m_bEditLastControl = FALSE;
  return hWndCtrl;
}

HWND CDataExchange::PrepareEditCtrl(int nIDC) {
  HWND hWndCtrl = PrepareCtrl(nIDC);
  m_bEditLastControl = TRUE;
  return hWndCtrl;
}

void CDataExchange::Fail() {
  if (m_bSaveAndValidate && m_hWndLastControl != NULL) {
    // The user is taken back to the field at fault.
    ::SetFocus(m_hWndLastControl);
    if (m_bEditLastControl) ::SendMessage(m_hWndLastControl, EM_SETSEL, 0, -1);
  }
  AfxThrowUserException();
}

// ---- Text ---------------------------------------------------------------------------

// Sets the text only when it differs, so that the control does not flicker
// and no needless change notification is sent.
static void SetWindowTextIfChanged(HWND hWndCtrl, LPCTSTR lpszNew) {
  int nNewLen = lstrlen(lpszNew);
  TCHAR szOld[256];
  if (nNewLen > (int)_countof(szOld) - 1 ||
      ::GetWindowText(hWndCtrl, szOld, _countof(szOld)) != nNewLen || lstrcmp(szOld, lpszNew) != 0)
    ::SetWindowText(hWndCtrl, lpszNew);
}

// A number's text is bounded: controls holding more than 63 characters are
// not a number anyway and fail to parse.
static BOOL GetNumberText(HWND hWndCtrl, TCHAR (&szText)[64]) {
  int nLen = ::GetWindowTextLength(hWndCtrl);
  if (nLen >= (int)_countof(szText)) return FALSE;
  ::GetWindowText(hWndCtrl, szText, _countof(szText));
  return TRUE;
}

static LPCTSTR SkipSpace(LPCTSTR p) {
  while (*p == ' ' || *p == '\t')
    p++;
  return p;
}

// A whole-text signed or unsigned number, surrounded by blanks at most.
static BOOL ParseLong(LPCTSTR pszText, BOOL bSigned, long& lValue, unsigned long& ulValue) {
  LPCTSTR p = SkipSpace(pszText);
  if (*p == '\0') return FALSE;
  if (!bSigned && *p == '-') return FALSE;
  char* pEnd;
  errno = 0;
  if (bSigned)
    lValue = strtol(p, &pEnd, 10);
  else
    ulValue = strtoul(p, &pEnd, 10);
  if (pEnd == p || errno == ERANGE) return FALSE;
  return *SkipSpace(pEnd) == '\0';
}

static void FailParse(CDataExchange* pDX, UINT nIDPrompt) {
  AfxMessageBox(nIDPrompt);
  pDX->Fail();
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value) {
  HWND hWndCtrl = pDX->PrepareEditCtrl(nIDC);
  if (pDX->m_bSaveAndValidate) {
    int nLen = ::GetWindowTextLength(hWndCtrl);
    ::GetWindowText(hWndCtrl, value.GetBufferSetLength(nLen), nLen + 1);
    value.ReleaseBuffer();
  } else {
    SetWindowTextIfChanged(hWndCtrl, value);
  }
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, LPTSTR value, int nMaxLen) {
  HWND hWndCtrl = pDX->PrepareEditCtrl(nIDC);
  if (value == NULL || nMaxLen <= 0) AfxThrowInvalidArgException();
  if (pDX->m_bSaveAndValidate) {
    ::GetWindowText(hWndCtrl, value, nMaxLen);
  } else {
    SetWindowTextIfChanged(hWndCtrl, value);
  }
}

static void TextLong(CDataExchange* pDX, int nIDC, BOOL bSigned, long* plValue,
                     unsigned long* pulValue, UINT nIDPrompt) {
  HWND hWndCtrl = pDX->PrepareEditCtrl(nIDC);
  TCHAR szText[64];
  if (pDX->m_bSaveAndValidate) {
    long l = 0;
    unsigned long ul = 0;
    if (!GetNumberText(hWndCtrl, szText) || !ParseLong(szText, bSigned, l, ul))
      FailParse(pDX, nIDPrompt);
    if (bSigned)
      *plValue = l;
    else
      *pulValue = ul;
  } else {
    if (bSigned)
      wsprintf(szText, "%ld", *plValue);
    else
      wsprintf(szText, "%lu", *pulValue);
    SetWindowTextIfChanged(hWndCtrl, szText);
  }
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, int& value) {
  long l = value;
  TextLong(pDX, nIDC, TRUE, &l, NULL, AFX_IDP_PARSE_INT);
  value = (int)l;
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, long& value) {
  TextLong(pDX, nIDC, TRUE, &value, NULL, AFX_IDP_PARSE_INT);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, UINT& value) {
  unsigned long ul = value;
  TextLong(pDX, nIDC, FALSE, NULL, &ul, AFX_IDP_PARSE_UINT);
  value = (UINT)ul;
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, DWORD& value) {
  unsigned long ul = value;
  TextLong(pDX, nIDC, FALSE, NULL, &ul, AFX_IDP_PARSE_UINT);
  value = (DWORD)ul;
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, double& value) {
  HWND hWndCtrl = pDX->PrepareEditCtrl(nIDC);
  TCHAR szText[64];
  if (pDX->m_bSaveAndValidate) {
    BOOL bOK = GetNumberText(hWndCtrl, szText);
    if (bOK) {
      LPCTSTR p = SkipSpace(szText);
      char* pEnd;
      double d = strtod(p, &pEnd);
      bOK = pEnd != p && *SkipSpace(pEnd) == '\0';
      if (bOK) value = d;
    }
    if (!bOK) FailParse(pDX, AFX_IDP_PARSE_REAL);
  } else {
    snprintf(szText, _countof(szText), "%.*g", DBL_DIG, value);
    SetWindowTextIfChanged(hWndCtrl, szText);
  }
}

// ---- Buttons and lists ---------------------------------------------------------------

void AFXAPI DDX_Check(CDataExchange* pDX, int nIDC, int& value) {
  HWND hWndCtrl = pDX->PrepareCtrl(nIDC);
  if (pDX->m_bSaveAndValidate) {
    value = (int)::SendMessage(hWndCtrl, BM_GETCHECK, 0, 0);
  } else {
    if (value < 0 || value > 2) value = 0; // not a check state: unchecked
    ::SendMessage(hWndCtrl, BM_SETCHECK, (WPARAM)value, 0);
  }
}

// nIDC is the first radio button of a group; value is the index of the
// checked one among the group's radio buttons (-1: none).
void AFXAPI DDX_Radio(CDataExchange* pDX, int nIDC, int& value) {
  HWND hWndCtrl = pDX->PrepareCtrl(nIDC);
  if (pDX->m_bSaveAndValidate) value = -1;
  int iButton = 0;
  do {
    if (::SendMessage(hWndCtrl, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) {
      if (pDX->m_bSaveAndValidate) {
        if (::SendMessage(hWndCtrl, BM_GETCHECK, 0, 0) != 0) value = iButton;
      } else {
        ::SendMessage(hWndCtrl, BM_SETCHECK, iButton == value, 0);
      }
      iButton++;
    }
    hWndCtrl = ::GetWindow(hWndCtrl, GW_HWNDNEXT);
  } while (hWndCtrl != NULL && !(::GetWindowLong(hWndCtrl, GWL_STYLE) & WS_GROUP));
}

void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl) {
  if (rControl.m_hWnd != NULL) return; // subclassed on an earlier pass
  HWND hWndCtrl = pDX->PrepareCtrl(nIDC);
  if (!rControl.SubclassWindow(hWndCtrl)) AfxThrowNotSupportedException();
}

void AFXAPI DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index) {
  HWND hWndCtrl = pDX->PrepareCtrl(nIDC);
  if (pDX->m_bSaveAndValidate)
    index = (int)::SendMessage(hWndCtrl, CB_GETCURSEL, 0, 0);
  else
    ::SendMessage(hWndCtrl, CB_SETCURSEL, (WPARAM)index, 0);
}

void AFXAPI DDX_LBIndex(CDataExchange* pDX, int nIDC, int& index) {
  HWND hWndCtrl = pDX->PrepareCtrl(nIDC);
  if (pDX->m_bSaveAndValidate)
    index = (int)::SendMessage(hWndCtrl, LB_GETCURSEL, 0, 0);
  else
    ::SendMessage(hWndCtrl, LB_SETCURSEL, (WPARAM)index, 0);
}

static void GetItemText(HWND hWndCtrl, UINT nLenMsg, UINT nTextMsg, int nIndex, CString& value) {
  int nLen = (int)::SendMessage(hWndCtrl, nLenMsg, nIndex, 0);
  if (nLen < 0) {
    value.Empty();
    return;
  }
  ::SendMessage(hWndCtrl, nTextMsg, nIndex, (LPARAM)value.GetBufferSetLength(nLen));
  value.ReleaseBuffer(nLen);
}

void AFXAPI DDX_CBString(CDataExchange* pDX, int nIDC, CString& value) {
  HWND hWndCtrl = pDX->PrepareCtrl(nIDC);
  if (pDX->m_bSaveAndValidate) {
    // The edit text, else (a drop-down list) the selected item's text.
    int nLen = ::GetWindowTextLength(hWndCtrl);
    if (nLen > 0) {
      ::GetWindowText(hWndCtrl, value.GetBufferSetLength(nLen), nLen + 1);
      value.ReleaseBuffer();
    } else {
      int nIndex = (int)::SendMessage(hWndCtrl, CB_GETCURSEL, 0, 0);
      if (nIndex != CB_ERR)
        GetItemText(hWndCtrl, CB_GETLBTEXTLEN, CB_GETLBTEXT, nIndex, value);
      else
        value.Empty();
    }
  } else {
    if (::SendMessage(hWndCtrl, CB_SELECTSTRING, (WPARAM)-1, (LPARAM)(LPCTSTR)value) == CB_ERR)
      SetWindowTextIfChanged(hWndCtrl, value); // no such item: the edit text
  }
}

void AFXAPI DDX_LBString(CDataExchange* pDX, int nIDC, CString& value) {
  HWND hWndCtrl = pDX->PrepareCtrl(nIDC);
  if (pDX->m_bSaveAndValidate) {
    int nIndex = (int)::SendMessage(hWndCtrl, LB_GETCURSEL, 0, 0);
    if (nIndex != LB_ERR)
      GetItemText(hWndCtrl, LB_GETTEXTLEN, LB_GETTEXT, nIndex, value);
    else
      value.Empty();
  } else {
    ::SendMessage(hWndCtrl, LB_SELECTSTRING, (WPARAM)-1, (LPARAM)(LPCTSTR)value);
  }
}

// ---- Validation ----------------------------------------------------------------------

void AFXAPI DDV_MaxChars(CDataExchange* pDX, CString const& value, int nChars) {
  if (pDX->m_bSaveAndValidate && value.GetLength() > nChars) {
    TCHAR szT[32];
    wsprintf(szT, "%d", nChars);
    CString prompt;
    AfxFormatString1(prompt, AFX_IDP_PARSE_STRING_SIZE, szT);
    AfxMessageBox(prompt, MB_ICONEXCLAMATION, AFX_IDP_PARSE_STRING_SIZE);
    pDX->Fail();
  } else if (!pDX->m_bSaveAndValidate && pDX->m_hWndLastControl != NULL &&
             pDX->m_bEditLastControl) {
    // The edit control refuses longer input from now on.
    ::SendMessage(pDX->m_hWndLastControl, EM_LIMITTEXT, nChars, 0);
  }
}

static void FailMinMax(CDataExchange* pDX, LPCTSTR lpszMin, LPCTSTR lpszMax, UINT nIDPrompt) {
  CString prompt;
  AfxFormatString2(prompt, nIDPrompt, lpszMin, lpszMax);
  AfxMessageBox(prompt, MB_ICONEXCLAMATION, nIDPrompt);
  pDX->Fail();
}

static void MinMaxLong(CDataExchange* pDX, long value, long minVal, long maxVal) {
  if (!pDX->m_bSaveAndValidate || (value >= minVal && value <= maxVal)) return;
  TCHAR szMin[32], szMax[32];
  wsprintf(szMin, "%ld", minVal);
  wsprintf(szMax, "%ld", maxVal);
  FailMinMax(pDX, szMin, szMax, AFX_IDP_PARSE_INT_RANGE);
}

static void MinMaxULong(CDataExchange* pDX, unsigned long value, unsigned long minVal,
                        unsigned long maxVal) {
  if (!pDX->m_bSaveAndValidate || (value >= minVal && value <= maxVal)) return;
  TCHAR szMin[32], szMax[32];
  wsprintf(szMin, "%lu", minVal);
  wsprintf(szMax, "%lu", maxVal);
  FailMinMax(pDX, szMin, szMax, AFX_IDP_PARSE_INT_RANGE);
}

void AFXAPI DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal) {
  MinMaxLong(pDX, value, minVal, maxVal);
}

void AFXAPI DDV_MinMaxLong(CDataExchange* pDX, long value, long minVal, long maxVal) {
  MinMaxLong(pDX, value, minVal, maxVal);
}

void AFXAPI DDV_MinMaxUInt(CDataExchange* pDX, UINT value, UINT minVal, UINT maxVal) {
  MinMaxULong(pDX, value, minVal, maxVal);
}

void AFXAPI DDV_MinMaxDWord(CDataExchange* pDX, DWORD value, DWORD minVal, DWORD maxVal) {
  MinMaxULong(pDX, value, minVal, maxVal);
}

void AFXAPI DDV_MinMaxDouble(CDataExchange* pDX, double const& value, double minVal,
                             double maxVal) {
  if (!pDX->m_bSaveAndValidate || (value >= minVal && value <= maxVal)) return;
  TCHAR szMin[64], szMax[64];
  snprintf(szMin, _countof(szMin), "%.*g", DBL_DIG, minVal);
  snprintf(szMax, _countof(szMax), "%.*g", DBL_DIG, maxVal);
  FailMinMax(pDX, szMin, szMax, AFX_IDP_PARSE_REAL_RANGE);
}
