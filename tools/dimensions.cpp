#include "tools/dimensions.h"

short BORDER = 3;
short SPACE = 6;
short CURSEUR = 16;
short BUT_DIM = 25;
short NUM_DIM = 48;
short VAL_DIM = 26;
short VAL_SMALL = 18;
short BUT_LIST = BUT_DIM;
