// Numbers of the designer's resources.
#pragma once

#define PLINTH_ICON 1
#define PLINTH_STUB 101          // type CUSTOM: the engine, whole
#define PLINTH_DEFAULT_ICON 103  // type CUSTOM: the icon of applications that are given none
