// CCmdTarget: the base of the classes that receive commands.
#include <afxwin.h>

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

CCmdTarget::CCmdTarget() {}
CCmdTarget::~CCmdTarget() {}

// Without an application object (a library used outside one) the cursor is
// left alone.
static void DoWaitCursor(int nCode) {
  if (CWinApp* pApp = AfxGetApp()) pApp->DoWaitCursor(nCode);
}

void CCmdTarget::BeginWaitCursor() { DoWaitCursor(1); }
void CCmdTarget::EndWaitCursor() { DoWaitCursor(-1); }
void CCmdTarget::RestoreWaitCursor() { DoWaitCursor(0); }
