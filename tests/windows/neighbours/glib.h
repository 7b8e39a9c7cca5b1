// The GLib framework.
#include <gio/gio.h>
#include <glib-object.h>
#include <glib.h>
