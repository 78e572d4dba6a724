#define IDD_BARE 1
#define IDC_TEXT 100
