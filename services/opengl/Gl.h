#pragma once

// The only place that includes the OpenGL headers.

#include <GL/gl.h>
#include <GL/glext.h>
#include <GL/glu.h>
