// Texts of the OpenFX interface: suites, actions, properties and their values. Use ofx_api.h.

#pragma once

// Suites of the host.
inline constexpr char kOfxPropertySuite[] = "OfxPropertySuite";
inline constexpr char kOfxImageEffectSuite[] = "OfxImageEffectSuite";
inline constexpr char kOfxParameterSuite[] = "OfxParameterSuite";
inline constexpr char kOfxMessageSuite[] = "OfxMessageSuite";
inline constexpr char kOfxInteractSuite[] = "OfxInteractSuite";

// The kind of plug-in, and kinds of objects.
inline constexpr char kOfxImageEffectPluginApi[] = "OfxImageEffectPluginAPI";
inline constexpr char kOfxTypeImageEffectHost[] = "OfxTypeImageEffectHost";
inline constexpr char kOfxTypeImageEffect[] = "OfxTypeImageEffect";
inline constexpr char kOfxTypeImageEffectInstance[] = "OfxTypeImageEffectInstance";
inline constexpr char kOfxTypeParameter[] = "OfxTypeParameter";
inline constexpr char kOfxTypeParameterInstance[] = "OfxTypeParameterInstance";
inline constexpr char kOfxTypeClip[] = "OfxTypeClip";
inline constexpr char kOfxTypeImage[] = "OfxTypeImage";

// Actions of every plug-in.
inline constexpr char kOfxActionLoad[] = "OfxActionLoad";
inline constexpr char kOfxActionUnload[] = "OfxActionUnload";
inline constexpr char kOfxActionDescribe[] = "OfxActionDescribe";
inline constexpr char kOfxActionCreateInstance[] = "OfxActionCreateInstance";
inline constexpr char kOfxActionDestroyInstance[] = "OfxActionDestroyInstance";
inline constexpr char kOfxActionInstanceChanged[] = "OfxActionInstanceChanged";
inline constexpr char kOfxActionBeginInstanceChanged[] = "OfxActionBeginInstanceChanged";
inline constexpr char kOfxActionEndInstanceChanged[] = "OfxActionEndInstanceChanged";
inline constexpr char kOfxActionPurgeCaches[] = "OfxActionPurgeCaches";
inline constexpr char kOfxActionSyncPrivateData[] = "OfxActionSyncPrivateData";
inline constexpr char kOfxActionBeginInstanceEdit[] = "OfxActionBeginInstanceEdit";
inline constexpr char kOfxActionEndInstanceEdit[] = "OfxActionEndInstanceEdit";

// Actions of image effects.
inline constexpr char kOfxImageEffectActionDescribeInContext[] =
    "OfxImageEffectActionDescribeInContext";
inline constexpr char kOfxImageEffectActionGetRegionOfDefinition[] =
    "OfxImageEffectActionGetRegionOfDefinition";
inline constexpr char kOfxImageEffectActionGetRegionsOfInterest[] =
    "OfxImageEffectActionGetRegionsOfInterest";
inline constexpr char kOfxImageEffectActionGetFramesNeeded[] =
    "OfxImageEffectActionGetFramesNeeded";
inline constexpr char kOfxImageEffectActionGetTimeDomain[] = "OfxImageEffectActionGetTimeDomain";
inline constexpr char kOfxImageEffectActionGetClipPreferences[] =
    "OfxImageEffectActionGetClipPreferences";
inline constexpr char kOfxImageEffectActionIsIdentity[] = "OfxImageEffectActionIsIdentity";
inline constexpr char kOfxImageEffectActionRender[] = "OfxImageEffectActionRender";
inline constexpr char kOfxImageEffectActionBeginSequenceRender[] =
    "OfxImageEffectActionBeginSequenceRender";
inline constexpr char kOfxImageEffectActionEndSequenceRender[] =
    "OfxImageEffectActionEndSequenceRender";

// Actions of interacts.
inline constexpr char kOfxInteractActionDraw[] = "OfxInteractActionDraw";
inline constexpr char kOfxInteractActionPenMotion[] = "OfxInteractActionPenMotion";
inline constexpr char kOfxInteractActionPenDown[] = "OfxInteractActionPenDown";
inline constexpr char kOfxInteractActionPenUp[] = "OfxInteractActionPenUp";
inline constexpr char kOfxInteractActionKeyDown[] = "OfxInteractActionKeyDown";
inline constexpr char kOfxInteractActionKeyUp[] = "OfxInteractActionKeyUp";
inline constexpr char kOfxInteractActionKeyRepeat[] = "OfxInteractActionKeyRepeat";
inline constexpr char kOfxInteractActionGainFocus[] = "OfxInteractActionGainFocus";
inline constexpr char kOfxInteractActionLoseFocus[] = "OfxInteractActionLoseFocus";

// Properties of several kinds of objects.
inline constexpr char kOfxPropAPIVersion[] = "OfxPropAPIVersion";
inline constexpr char kOfxPropType[] = "OfxPropType";
inline constexpr char kOfxPropName[] = "OfxPropName";
inline constexpr char kOfxPropLabel[] = "OfxPropLabel";
inline constexpr char kOfxPropShortLabel[] = "OfxPropShortLabel";
inline constexpr char kOfxPropLongLabel[] = "OfxPropLongLabel";
inline constexpr char kOfxPropVersion[] = "OfxPropVersion";
inline constexpr char kOfxPropVersionLabel[] = "OfxPropVersionLabel";
inline constexpr char kOfxPropPluginDescription[] = "OfxPropPluginDescription";
inline constexpr char kOfxPropTime[] = "OfxPropTime";
inline constexpr char kOfxPropIsInteractive[] = "OfxPropIsInteractive";
inline constexpr char kOfxPropInstanceData[] = "OfxPropInstanceData";
inline constexpr char kOfxPropChangeReason[] = "OfxPropChangeReason";
inline constexpr char kOfxPropEffectInstance[] = "OfxPropEffectInstance";
inline constexpr char kOfxPluginPropFilePath[] = "OfxPluginPropFilePath";

// Values of PropChangeReason.
inline constexpr char kOfxChangeUserEdited[] = "OfxChangeUserEdited";
inline constexpr char kOfxChangePluginEdited[] = "OfxChangePluginEdited";
inline constexpr char kOfxChangeTime[] = "OfxChangeTime";

// Properties of hosts and effects.
inline constexpr char kOfxImageEffectHostPropIsBackground[] = "OfxImageEffectHostPropIsBackground";
inline constexpr char kOfxImageEffectPropSupportsOverlays[] = "OfxImageEffectPropSupportsOverlays";
inline constexpr char kOfxImageEffectPropSupportsMultiResolution[] =
    "OfxImageEffectPropSupportsMultiResolution";
inline constexpr char kOfxImageEffectPropSupportsTiles[] = "OfxImageEffectPropSupportsTiles";
inline constexpr char kOfxImageEffectPropTemporalClipAccess[] =
    "OfxImageEffectPropTemporalClipAccess";
inline constexpr char kOfxImageEffectPropSupportedComponents[] =
    "OfxImageEffectPropSupportedComponents";
inline constexpr char kOfxImageEffectPropSupportedContexts[] =
    "OfxImageEffectPropSupportedContexts";
inline constexpr char kOfxImageEffectPropSupportedPixelDepths[] =
    "OfxImageEffectPropSupportedPixelDepths";
inline constexpr char kOfxImageEffectPropSupportsMultipleClipDepths[] =
    "OfxImageEffectPropMultipleClipDepths";
inline constexpr char kOfxImageEffectPropSupportsMultipleClipPARs[] =
    "OfxImageEffectPropSupportsMultipleClipPARs";
inline constexpr char kOfxImageEffectPropSetableFrameRate[] = "OfxImageEffectPropSetableFrameRate";
inline constexpr char kOfxImageEffectPropSetableFielding[] = "OfxImageEffectPropSetableFielding";
inline constexpr char kOfxImageEffectInstancePropSequentialRender[] =
    "OfxImageEffectInstancePropSequentialRender";
inline constexpr char kOfxImageEffectPluginPropGrouping[] = "OfxImageEffectPluginPropGrouping";
inline constexpr char kOfxImageEffectPluginPropSingleInstance[] =
    "OfxImageEffectPluginPropSingleInstance";
inline constexpr char kOfxImageEffectPluginRenderThreadSafety[] =
    "OfxImageEffectPluginRenderThreadSafety";
inline constexpr char kOfxImageEffectPluginPropHostFrameThreading[] =
    "OfxImageEffectPluginPropHostFrameThreading";
inline constexpr char kOfxImageEffectPluginPropFieldRenderTwiceAlways[] =
    "OfxImageEffectPluginPropFieldRenderTwiceAlways";
inline constexpr char kOfxImageEffectPluginPropOverlayInteractV1[] =
    "OfxImageEffectPluginPropOverlayInteractV1";
inline constexpr char kOfxImageEffectPropClipPreferencesSlaveParam[] =
    "OfxImageEffectPropClipPreferencesSlaveParam";

// Values of thread safety.
inline constexpr char kOfxImageEffectRenderUnsafe[] = "OfxImageEffectRenderUnsafe";
inline constexpr char kOfxImageEffectRenderInstanceSafe[] = "OfxImageEffectRenderInstanceSafe";
inline constexpr char kOfxImageEffectRenderFullySafe[] = "OfxImageEffectRenderFullySafe";

// Contexts.
inline constexpr char kOfxImageEffectContextFilter[] = "OfxImageEffectContextFilter";
inline constexpr char kOfxImageEffectContextGeneral[] = "OfxImageEffectContextGeneral";

// Properties of instances, and arguments of their actions.
inline constexpr char kOfxImageEffectPropContext[] = "OfxImageEffectPropContext";
inline constexpr char kOfxImageEffectPropProjectSize[] = "OfxImageEffectPropProjectSize";
inline constexpr char kOfxImageEffectPropProjectOffset[] = "OfxImageEffectPropProjectOffset";
inline constexpr char kOfxImageEffectPropProjectExtent[] = "OfxImageEffectPropProjectExtent";
inline constexpr char kOfxImageEffectPropProjectPixelAspectRatio[] =
    "OfxImageEffectPropPixelAspectRatio";
inline constexpr char kOfxImageEffectInstancePropEffectDuration[] =
    "OfxImageEffectInstancePropEffectDuration";
inline constexpr char kOfxImageEffectPropFrameRate[] = "OfxImageEffectPropFrameRate";
inline constexpr char kOfxImageEffectPropFrameRange[] = "OfxImageEffectPropFrameRange";
inline constexpr char kOfxImageEffectPropFrameStep[] = "OfxImageEffectPropFrameStep";
inline constexpr char kOfxImageEffectPropFieldToRender[] = "OfxImageEffectPropFieldToRender";
inline constexpr char kOfxImageEffectPropRegionOfDefinition[] =
    "OfxImageEffectPropRegionOfDefinition";
inline constexpr char kOfxImageEffectPropRegionOfInterest[] = "OfxImageEffectPropRegionOfInterest";
inline constexpr char kOfxImageEffectPropRenderWindow[] = "OfxImageEffectPropRenderWindow";
inline constexpr char kOfxImageEffectPropRenderScale[] = "OfxImageEffectPropRenderScale";
inline constexpr char kOfxImageEffectPropSequentialRenderStatus[] =
    "OfxImageEffectPropSequentialRenderStatus";
inline constexpr char kOfxImageEffectPropInteractiveRenderStatus[] =
    "OfxImageEffectPropInteractiveRenderStatus";
inline constexpr char kOfxImageEffectFrameVarying[] = "OfxImageEffectFrameVarying";

// Clips.
inline constexpr char kOfxImageEffectSimpleSourceClipName[] = "Source";
inline constexpr char kOfxImageEffectOutputClipName[] = "Output";
inline constexpr char kOfxImageClipPropConnected[] = "OfxImageClipPropConnected";
inline constexpr char kOfxImageClipPropOptional[] = "OfxImageClipPropOptional";
inline constexpr char kOfxImageClipPropIsMask[] = "OfxImageClipPropIsMask";
inline constexpr char kOfxImageClipPropFieldExtraction[] = "OfxImageClipPropFieldExtraction";
inline constexpr char kOfxImageClipPropFieldOrder[] = "OfxImageClipPropFieldOrder";
inline constexpr char kOfxImageClipPropContinuousSamples[] = "OfxImageClipPropContinuousSamples";
inline constexpr char kOfxImageClipPropUnmappedPixelDepth[] = "OfxImageClipPropUnmappedPixelDepth";
inline constexpr char kOfxImageClipPropUnmappedComponents[] = "OfxImageClipPropUnmappedComponents";

// Clips and images.
inline constexpr char kOfxImageEffectPropPixelDepth[] = "OfxImageEffectPropPixelDepth";
inline constexpr char kOfxImageEffectPropComponents[] = "OfxImageEffectPropComponents";
inline constexpr char kOfxImageEffectPropPreMultiplication[] =
    "OfxImageEffectPropPreMultiplication";
inline constexpr char kOfxImagePropPixelAspectRatio[] = "OfxImagePropPixelAspectRatio";

// Images.
inline constexpr char kOfxImagePropData[] = "OfxImagePropData";
inline constexpr char kOfxImagePropBounds[] = "OfxImagePropBounds";
inline constexpr char kOfxImagePropRegionOfDefinition[] = "OfxImagePropRegionOfDefinition";
inline constexpr char kOfxImagePropRowBytes[] = "OfxImagePropRowBytes";
inline constexpr char kOfxImagePropField[] = "OfxImagePropField";
inline constexpr char kOfxImagePropUniqueIdentifier[] = "OfxImagePropUniqueIdentifier";

// Depths of components.
inline constexpr char kOfxBitDepthNone[] = "OfxBitDepthNone";
inline constexpr char kOfxBitDepthByte[] = "OfxBitDepthByte";
inline constexpr char kOfxBitDepthShort[] = "OfxBitDepthShort";
inline constexpr char kOfxBitDepthHalf[] = "OfxBitDepthHalf";
inline constexpr char kOfxBitDepthFloat[] = "OfxBitDepthFloat";

// Components of pixels.
inline constexpr char kOfxImageComponentNone[] = "OfxImageComponentNone";
inline constexpr char kOfxImageComponentRGBA[] = "OfxImageComponentRGBA";
inline constexpr char kOfxImageComponentRGB[] = "OfxImageComponentRGB";
inline constexpr char kOfxImageComponentAlpha[] = "OfxImageComponentAlpha";

// Forms of alpha.
inline constexpr char kOfxImageOpaque[] = "OfxImageOpaque";
inline constexpr char kOfxImagePreMultiplied[] = "OfxImageAlphaPremultiplied";
inline constexpr char kOfxImageUnPreMultiplied[] = "OfxImageAlphaUnPremultiplied";

// Fields.
inline constexpr char kOfxImageFieldNone[] = "OfxFieldNone";
inline constexpr char kOfxImageFieldBoth[] = "OfxFieldBoth";
inline constexpr char kOfxImageFieldLower[] = "OfxFieldLower";
inline constexpr char kOfxImageFieldUpper[] = "OfxFieldUpper";
inline constexpr char kOfxImageFieldSingle[] = "OfxFieldSingle";
inline constexpr char kOfxImageFieldDoubled[] = "OfxFieldDoubled";

// Kinds of parameters.
inline constexpr char kOfxParamTypeInteger[] = "OfxParamTypeInteger";
inline constexpr char kOfxParamTypeDouble[] = "OfxParamTypeDouble";
inline constexpr char kOfxParamTypeBoolean[] = "OfxParamTypeBoolean";
inline constexpr char kOfxParamTypeChoice[] = "OfxParamTypeChoice";
inline constexpr char kOfxParamTypeRGB[] = "OfxParamTypeRGB";
inline constexpr char kOfxParamTypeString[] = "OfxParamTypeString";
inline constexpr char kOfxParamTypeGroup[] = "OfxParamTypeGroup";
inline constexpr char kOfxParamTypePage[] = "OfxParamTypePage";
inline constexpr char kOfxParamTypePushButton[] = "OfxParamTypePushButton";

// Properties of parameters.
inline constexpr char kOfxParamHostPropSupportsBooleanAnimation[] =
    "OfxParamHostPropSupportsBooleanAnimation";
inline constexpr char kOfxParamHostPropSupportsChoiceAnimation[] =
    "OfxParamHostPropSupportsChoiceAnimation";
inline constexpr char kOfxParamHostPropSupportsStringAnimation[] =
    "OfxParamHostPropSupportsStringAnimation";
inline constexpr char kOfxParamHostPropMaxParameters[] = "OfxParamHostPropMaxParameters";
inline constexpr char kOfxParamHostPropMaxPages[] = "OfxParamHostPropMaxPages";
inline constexpr char kOfxParamHostPropPageRowColumnCount[] = "OfxParamHostPropPageRowColumnCount";
inline constexpr char kOfxParamPropType[] = "OfxParamPropType";
inline constexpr char kOfxParamPropSecret[] = "OfxParamPropSecret";
inline constexpr char kOfxParamPropHint[] = "OfxParamPropHint";
inline constexpr char kOfxParamPropScriptName[] = "OfxParamPropScriptName";
inline constexpr char kOfxParamPropParent[] = "OfxParamPropParent";
inline constexpr char kOfxParamPropEnabled[] = "OfxParamPropEnabled";
inline constexpr char kOfxParamPropDefault[] = "OfxParamPropDefault";
inline constexpr char kOfxParamPropAnimates[] = "OfxParamPropAnimates";
inline constexpr char kOfxParamPropIsAnimating[] = "OfxParamPropIsAnimating";
inline constexpr char kOfxParamPropIsAutoKeying[] = "OfxParamPropIsAutoKeying";
inline constexpr char kOfxParamPropPersistant[] = "OfxParamPropPersistant";
inline constexpr char kOfxParamPropEvaluateOnChange[] = "OfxParamPropEvaluateOnChange";
inline constexpr char kOfxParamPropPluginMayWrite[] = "OfxParamPropPluginMayWrite";
inline constexpr char kOfxParamPropCacheInvalidation[] = "OfxParamPropCacheInvalidation";
inline constexpr char kOfxParamPropCanUndo[] = "OfxParamPropCanUndo";
inline constexpr char kOfxParamPropMin[] = "OfxParamPropMin";
inline constexpr char kOfxParamPropMax[] = "OfxParamPropMax";
inline constexpr char kOfxParamPropDisplayMin[] = "OfxParamPropDisplayMin";
inline constexpr char kOfxParamPropDisplayMax[] = "OfxParamPropDisplayMax";
inline constexpr char kOfxParamPropIncrement[] = "OfxParamPropIncrement";
inline constexpr char kOfxParamPropDigits[] = "OfxParamPropDigits";
inline constexpr char kOfxParamPropDoubleType[] = "OfxParamPropDoubleType";
inline constexpr char kOfxParamPropGroupOpen[] = "OfxParamPropGroupOpen";
inline constexpr char kOfxParamPropPageChild[] = "OfxParamPropPageChild";
inline constexpr char kOfxParamPropChoiceOption[] = "OfxParamPropChoiceOption";
inline constexpr char kOfxParamPropStringMode[] = "OfxParamPropStringMode";

// Values of some of these.
inline constexpr char kOfxParamDoubleTypePlain[] = "OfxParamDoubleTypePlain";
inline constexpr char kOfxParamStringIsLabel[] = "OfxParamStringIsLabel";
inline constexpr char kOfxParamInvalidateValueChange[] = "OfxParamInvalidateValueChange";
inline constexpr char kOfxParamInvalidateAll[] = "OfxParamInvalidateAll";

// Interacts.
inline constexpr char kOfxInteractPropPixelScale[] = "OfxInteractPropPixelScale";
inline constexpr char kOfxInteractPropBackgroundColour[] = "OfxInteractPropBackgroundColour";
inline constexpr char kOfxInteractPropPenPosition[] = "OfxInteractPropPenPosition";
inline constexpr char kOfxInteractPropPenViewportPosition[] = "OfxInteractPropPenViewportPosition";
inline constexpr char kOfxInteractPropPenPressure[] = "OfxInteractPropPenPressure";
inline constexpr char kOfxInteractPropSlaveToParam[] = "OfxInteractPropSlaveToParam";

// Kinds of messages.
inline constexpr char kOfxMessageFatal[] = "OfxMessageFatal";
inline constexpr char kOfxMessageError[] = "OfxMessageError";
inline constexpr char kOfxMessageWarning[] = "OfxMessageWarning";
inline constexpr char kOfxMessageMessage[] = "OfxMessageMessage";
inline constexpr char kOfxMessageLog[] = "OfxMessageLog";
inline constexpr char kOfxMessageQuestion[] = "OfxMessageQuestion";
