/* The one version number of the system: program, version resource and packaging read it from here.
   Plain macros, because the resource compiler reads this file too. */
#ifndef TARVEX_RESOURCES_VERSION_H
#define TARVEX_RESOURCES_VERSION_H

#define TARVEX_VERSION_MAJOR 1
#define TARVEX_VERSION_MINOR 0
#define TARVEX_VERSION_REVISION 1
#define TARVEX_VERSION_TEXT "1.0.001"

#endif
