#ifndef AFXFILE_H
#define AFXFILE_H

#endif
