// The functions of OpenGL and GLU, from libraries that are opened when they are first needed.

#pragma once

#ifdef _WIN32
#include <windows.h>
#endif

#include <GL/gl.h>
#include <GL/glu.h>

namespace ruvex {

// Every function that is used, in alphabetical order.
#define RUVEX_GL_FUNCTIONS(FUNCTION) \
    FUNCTION(glBegin)                \
    FUNCTION(glBitmap)               \
    FUNCTION(glBlendFunc)            \
    FUNCTION(glCallLists)            \
    FUNCTION(glClear)                \
    FUNCTION(glClearColor)           \
    FUNCTION(glColor3f)              \
    FUNCTION(glDeleteLists)          \
    FUNCTION(glDisable)              \
    FUNCTION(glDrawPixels)           \
    FUNCTION(glEnable)               \
    FUNCTION(glEnd)                  \
    FUNCTION(glEndList)              \
    FUNCTION(glGenLists)             \
    FUNCTION(glGetDoublev)           \
    FUNCTION(glGetError)             \
    FUNCTION(glGetIntegerv)          \
    FUNCTION(glIsEnabled)            \
    FUNCTION(glLineStipple)          \
    FUNCTION(glLineWidth)            \
    FUNCTION(glListBase)             \
    FUNCTION(glLoadIdentity)         \
    FUNCTION(glLoadMatrixd)          \
    FUNCTION(glMatrixMode)           \
    FUNCTION(glMultMatrixf)          \
    FUNCTION(glNewList)              \
    FUNCTION(glOrtho)                \
    FUNCTION(glPixelStorei)          \
    FUNCTION(glPopAttrib)            \
    FUNCTION(glPopClientAttrib)      \
    FUNCTION(glPopMatrix)            \
    FUNCTION(glPushAttrib)           \
    FUNCTION(glPushClientAttrib)     \
    FUNCTION(glPushMatrix)           \
    FUNCTION(glRasterPos2f)          \
    FUNCTION(glReadPixels)           \
    FUNCTION(glRectf)                \
    FUNCTION(glRotatef)              \
    FUNCTION(glScalef)               \
    FUNCTION(glScissor)              \
    FUNCTION(glShadeModel)           \
    FUNCTION(glTranslatef)           \
    FUNCTION(glVertex2f)             \
    FUNCTION(glViewport)
#define RUVEX_GLU_FUNCTIONS(FUNCTION) \
    FUNCTION(gluDeleteQuadric)        \
    FUNCTION(gluDisk)                 \
    FUNCTION(gluNewQuadric)           \
    FUNCTION(gluPartialDisk)          \
    FUNCTION(gluQuadricDrawStyle)     \
    FUNCTION(gluQuadricNormals)

struct OpenGl {
#define RUVEX_GL_MEMBER(name) decltype(&::name) name = nullptr;
    RUVEX_GL_FUNCTIONS(RUVEX_GL_MEMBER)
    RUVEX_GLU_FUNCTIONS(RUVEX_GL_MEMBER)
#undef RUVEX_GL_MEMBER
};

/// Opens the system's libraries at the first call. Null if one of them, or one of the functions, is
/// missing; then the next call tries again. May be called from any thread. Each program or shared
/// library that links this code opens the libraries for itself.
const OpenGl* openGl();

/// The same functions, for callers that know that `openGl` has succeeded. Without that, its members
/// are null.
const OpenGl& gl();

/// Whether the current context has room for one more glPushAttrib. A push onto a full stack fails,
/// and the glPopAttrib that belongs to it would take somebody else's attributes.
bool canPushAttributes();
/// The same for glPushClientAttrib.
bool canPushClientAttributes();

/// Closes the libraries. The next `openGl` opens them again. No other thread may use them
/// meanwhile.
void closeOpenGl();

}  // namespace ruvex
