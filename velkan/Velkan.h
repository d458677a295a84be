#pragma once

// Everything Velkan exports, in one include.
#include "velkan/core/Export.h"
#include "velkan/core/String.h"
#include "velkan/core/Exceptions.h"
#include "velkan/core/Win32Error.h"
#include "velkan/core/Resource.h"
#include "velkan/app/NotificationCenter.h"
#include "velkan/core/Geometry.h"
#include "velkan/app/Wnd.h"
#include "velkan/app/App.h"
#include "velkan/app/Thread.h"
#include "velkan/gfx/DC.h"
#include "velkan/gfx/ScopedDC.h"
#include "velkan/gfx/GdiObject.h"
#include "velkan/gfx/Brush.h"
#include "velkan/gfx/Font.h"
#include "velkan/gfx/Bitmap.h"
