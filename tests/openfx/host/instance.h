// An instance of a plug-in's effect, with everything that an application does with it.

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/openfx/host/plug_in.h"

namespace ruvex::ofxhost {

struct InstanceSetup {
    std::string context = kOfxImageEffectContextFilter;
    ProjectSetup project{};
    ClipSetup source{};
};

/// One call of the render action.
struct RenderArgs {
    double time = 0.0;
    OfxPointD scale{1.0, 1.0};
    std::string field = kOfxImageFieldNone;
    OfxRectI window{};                    ///< Empty for all of the output.
    OfxRectI outputBounds{};              ///< Empty for the output clip's region.
    std::optional<PixelFormat> format{};  ///< Without one that of the source.
    ImageLayout layout{};
    bool hasOutput = true;
    int abortAt = -1;  ///< The query of `abort` from which on it says so; below 0 for never.
};

struct RenderResult {
    OfxStatus status = kOfxStatFailed;
    /// All of the output; what was not written has kUntouched in every byte.
    Raster output{};
    std::vector<RenderRecord::Fetch> fetches{};
    int abortQueries = 0;

    /// The times that were asked for of the source, in order.
    std::vector<double> sourceTimes() const;
};

/// What the bytes of an output are before a render.
inline constexpr std::byte kUntouched{0x5B};

/// Several threads may render with one instance; everything else is done by one thread alone.
class Instance {
public:
    /// Describes in the context if that was not done yet, and creates the instance; `status` tells
    /// the result.
    Instance(PlugIn& plugIn, InstanceSetup setup);
    /// Destroys the plug-in's part too.
    ~Instance();
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;

    OfxStatus status() const { return status_; }
    PlugIn& plugIn() const { return plugIn_; }
    Host& host() const { return plugIn_.host(); }
    Effect& effect() { return *effect_; }
    ParameterSet& parameters() { return effect_->parameters; }
    Clip& source() { return *effect_->clip(kOfxImageEffectSimpleSourceClipName); }

    /// Calls an action for this instance.
    OfxStatus call(const char* action, ActionSets sets = {});

    // Edits of the application's user, each an undo step with its InstanceChanged action.
    void set(const std::string& name, const std::vector<double>& numbers);
    void set(const std::string& name, double number) { set(name, std::vector{number}); }
    void set(const std::string& name, const std::string& value);
    void setKeys(const std::string& name, const std::vector<Key>& keys);
    void press(const std::string& button);
    /// Takes the last step back and tells the plug-in what changed.
    bool undo();
    bool redo();
    /// Tells the plug-in that a parameter or clip was changed: begin, changed, end.
    OfxStatus tellChanged(const std::string& type, const std::string& name,
                          const std::string& reason);

    RenderResult render(const RenderArgs& args = {});
    /// The begin or the end of a sequence of renders.
    OfxStatus sequence(const char* action, const OfxRangeD& frames);

    /// The frames of the source that a frame needs; the frame alone where the plug-in says nothing.
    std::vector<OfxRangeD> framesNeeded(double time);
    /// Nothing where the plug-in leaves it to the host.
    std::optional<OfxRectD> regionOfDefinition(double time, const OfxPointD& scale = {1.0, 1.0});
    std::optional<OfxRectD> regionOfInterest(double time, const OfxRectD& region);
    /// The clip and time of which the result is a copy; nothing if it is none.
    std::optional<RenderRecord::Fetch> identity(double time);
    /// What the plug-in set of the clips' preferences.
    std::unique_ptr<PropertySet> clipPreferences();

private:
    OfxStatus callChanged(const std::string& type, const std::string& name,
                          const std::string& reason);
    void checkBlocks(const char* action);
    OfxRectI outputBounds(const RenderArgs& args) const;
    void fillRenderArguments(PropertySet& in, const RenderArgs& args, const OfxRectI& window);
    void checkUntouched(const Raster& output, const OfxRectI& window);

    PlugIn& plugIn_;
    InstanceSetup setup_;
    std::unique_ptr<Effect> effect_;
    OfxStatus status_ = kOfxStatFailed;
    int changeDepth_ = 0;
};

}  // namespace ruvex::ofxhost
