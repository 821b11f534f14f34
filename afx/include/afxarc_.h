#ifndef AFXARC_H
#define AFXARC_H

#endif
