# The second part of scripts/test-windows: windows that are shown. It has a prefix and an X server of
# its own. Sourced there, with the functions of wine.sh.

echo "== Starting Wine with a screen"
start_wine with-screen
use_screen

echo "== The crop box of the OpenFX bundle, which is not registered, and of the native one"
openfx openfx-overlay openfx_overlay "presets=Bad Colour TV" cropLeft=20 cropTop=80 \
    --drag 64,100,80,100 --drag 150,100,160,100 --hold 320,192,280,150

windows 60 regsvr32 /s "$module" || fail "the module cannot be registered"

echo "== The property pages, shown"
check pages-on-screen 60 "$bin/windows_check.exe" pages

echo "== The scripted states of the on-screen controls, in both builds"
check overlay 120 "$bin/overlay_states.exe" "$out/overlay-windows"
build/release/tests/overlay_states "$out/overlay-native" >"$out/overlay-native.txt" ||
    { cat "$out/overlay-native.txt"; fail "natively"; }
build/release/tests/overlay_states --compare "$out/overlay-native" "$out/overlay-windows" \
    >"$out/overlay-compared.txt" || { cat "$out/overlay-compared.txt"; fail "controls differ"; }
tail -n 1 "$out/overlay-compared.txt"

echo "== Mouse and keyboard"
mkdir -p "$out/hands"
timeout 300 python3 -B tests/windows/hands/hands.py "$bin/page_host.exe" "$out/hands" \
    >"$out/hands.txt" 2>&1 || { cat "$out/hands.txt"; fail "see the picture in $out/hands"; }
tail -n 1 "$out/hands.txt"
tail -n 1 "$out/hands.txt" | grep -q '^end: hands .* failed=0 ' || fail "the hands ended early"
