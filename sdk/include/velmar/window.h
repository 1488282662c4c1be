// The library's own window with its panes. Sizes and places are in pixels.
#pragma once

#include <velmar/export.h>

#include <cstddef>

namespace Velmar {

class ApiNodeGraph;

/// A pane of the window.
class VELMAR_SDK ApiGuiComponent {
public:
    int width() const;
    int height() const;
    int xPosition() const;
    int yPosition() const;

protected:
    ApiGuiComponent() = default;
    ~ApiGuiComponent() = default;
};

/// A pane that shows a graph.
class VELMAR_SDK ApiNodeGraphEditor : public ApiGuiComponent {
public:
    /// Shows a graph; null shows nothing.
    void setContentGraph(ApiNodeGraph* graph);

protected:
    ApiNodeGraphEditor() = default;
    ~ApiNodeGraphEditor() = default;
};

/// The arrangement of the window's panes.
class VELMAR_SDK ApiProjectWorkspace {
public:
    /// Sets `editors` and `count` to the node graph editors of the layout, valid until the layout changes; null and 0
    /// when there are none. A kept editor pointer must be compared with this list before it is used.
    void getNodeGraphEditors(ApiNodeGraphEditor* const*& editors, std::size_t& count);
    /// Takes a layout from XML text; one that cannot be read changes nothing and answers false.
    bool loadLayout(const char* xml);
    /// The layout as XML text, never null; valid until the next call.
    const char* serializeLayout();

protected:
    ApiProjectWorkspace() = default;
    ~ApiProjectWorkspace() = default;
};

/// The library's main window.
class VELMAR_SDK ApiMainWindow {
public:
    /// The window, made when needed; `on_close` runs with `user` when a person closes it, on the thread that may enter
    /// the host's scripts. Null when no window can be made.
    static ApiMainWindow* fetchOrCreateInstance(void (*on_close)(void* user), void* user);
    void show();
    void hide();
    bool visible() const;
    /// Never null.
    ApiProjectWorkspace* projectWorkspace();
    /// The graph that the window opens on.
    void setDefaultGraph(ApiNodeGraph* graph);

protected:
    ApiMainWindow() = default;
    ~ApiMainWindow() = default;
};

}  // namespace Velmar
