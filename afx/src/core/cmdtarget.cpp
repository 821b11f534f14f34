// CCmdTarget: the base of the classes that receive commands.
#include <afxwin.h>

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

CCmdTarget::CCmdTarget() {}
CCmdTarget::~CCmdTarget() {}
