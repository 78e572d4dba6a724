/* Ids of the launcher's own resources: plain macros, because the resource compiler reads them too. */
#ifndef TARVEX_RESOURCES_RESOURCEIDS_H
#define TARVEX_RESOURCES_RESOURCEIDS_H

/* The lowest icon id is the one that the file manager shows. */
#define IDI_TARVEX 1

/* Menu and accelerator table of the log window. */
#define IDR_DEBUG 2

/* Says where the program keeps room for the vendor's icon and version texts, see cmake/fill_room.py. */
#define IDR_ROOM 3

#define ID_DEBUG_SAVE 101
#define ID_DEBUG_CLOSE 102
#define ID_DEBUG_SELECTALL 103

/* Controls of the log window: the text, and the line that a failed save shows below it. */
#define IDC_TXTDEBUG 1000
#define IDC_DEBUG_NOTICE 1001

#endif
