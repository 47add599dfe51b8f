# shellcheck shell=bash
# Side-by-side timing of whole processes, sourced by the bench/*/run scripts.
#
# A script names each contender by an id, defines `run_<id>` doing one run of it from empty
# destinations, and calls `compare_contenders ID...`. Every round runs each contender once, the
# order rotated by one each round so none always runs first or right after another, each from
# empty destinations, a fresh $IGD_HOME and a dropped page cache. `print_comparison` then prints
# the medians with their runs, the ratios to the reference contenders and the targets.
#
# The script sets before sourcing: work (the folder for destinations and scratch) and runs.
# shellcheck disable=SC2154 # work and runs

declare -A bench_times=() bench_peak_kib=() bench_labels=() bench_targets=() bench_skipped=()
declare -a bench_order=()

# Forgets the contenders and their times, before the next table.
reset_comparison() {
    bench_times=() bench_peak_kib=() bench_labels=() bench_targets=() bench_skipped=() bench_order=()
}

bench_is_root() { [ "$(id -u)" -eq 0 ]; }

# Writes dirty pages and drops the page cache, so the next run reads from the disk like a card
# just inserted. Only root may drop it; others measure with whatever the cache holds.
drop_page_cache() {
    sync
    if bench_is_root; then
        echo 3 >/proc/sys/vm/drop_caches
    fi
}

page_cache_note() {
    if bench_is_root; then echo "page cache dropped before each run"; else
        echo "page cache NOT dropped (needs root): times flatter the readers"; fi
}

clear_destinations() { rm -rf "${work:?}/d1" "${work:?}/d2" "${work:?}/home"; }

fresh_destinations() {
    clear_destinations
    mkdir -p "$work/d1" "$work/d2" "$work/home"
    drop_page_cache
}

now() { date +%s.%N; }
seconds_between() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.3f", b - a }'; }
median() { tr ' ' '\n' | grep . | sort -g | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }

# Runs the command under /usr/bin/time so its peak resident set is known afterwards, keeping the
# largest of the contender's runs.
with_peak_memory() {
    local id="$1"
    shift
    /usr/bin/time -f %M -o "$work/peak-kib.txt" "$@"
    local kib
    kib=$(tail -1 "$work/peak-kib.txt")
    [ "${bench_peak_kib[$id]:-0}" -ge "$kib" ] || bench_peak_kib[$id]="$kib"
}

# ID LABEL: a contender of the table. Labels keep the order they were declared in.
contender() {
    bench_labels[$1]="$2"
    bench_order+=("$1")
}

# ID REFERENCE MAX: ID must take at most MAX times REFERENCE's median.
target() { bench_targets[$1]="$2 $3"; }

# ID REASON: the contender cannot run here; its row says why.
skip_contender() { bench_skipped[$1]="$2"; }

compare_contenders() {
    local ids=() id r i n start
    for id in "$@"; do
        [ -n "${bench_skipped[$id]:-}" ] || ids+=("$id")
    done
    n=${#ids[@]}
    for r in $(seq 0 $((runs - 1))); do
        for i in $(seq 0 $((n - 1))); do
            id="${ids[$(((i + r) % n))]}"
            fresh_destinations
            start=$(now)
            "run_$id"
            bench_times[$id]+=" $(seconds_between "$start" "$(now)")"
            if declare -F "after_$id" >/dev/null; then "after_$id"; fi
        done
    done
}

median_of() { echo "${bench_times[$1]:-}" | median; }

ratio_width() { local w=$((${#1} + 2)); echo $((w < 6 ? 6 : w)); }
ratio() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", a / b }'; }

# TITLE REFERENCE...: one row per contender, a ratio column per reference.
print_comparison() {
    local title="$1" id ref
    shift
    local refs=("$@")
    echo
    echo "$title"
    echo "  ($runs runs each, alternating; median; $(page_cache_note))"
    printf '  %-46s %8s  %-26s' "contender" "median s" "runs (s)"
    for ref in "${refs[@]}"; do printf ' %*s' "$(ratio_width "$ref")" "x ${ref}"; done
    printf ' %8s  %s\n' "peak MB" "target"
    for id in "${bench_order[@]}"; do
        printf '  %-46s' "${bench_labels[$id]}"
        if [ -n "${bench_skipped[$id]:-}" ]; then
            printf ' %8s  %s\n' "-" "${bench_skipped[$id]}"
            continue
        fi
        local t
        t=$(median_of "$id")
        printf ' %8.2f  %-26s' "$t" "$(echo "${bench_times[$id]}" | xargs)"
        for ref in "${refs[@]}"; do
            if [ -n "${bench_skipped[$ref]:-}" ]; then printf ' %*s' "$(ratio_width "$ref")" "-"; else
                printf ' %*s' "$(ratio_width "$ref")" "$(ratio "$t" "$(median_of "$ref")")"; fi
        done
        local peak="-"
        [ -z "${bench_peak_kib[$id]:-}" ] || peak=$(awk -v k="${bench_peak_kib[$id]}" 'BEGIN { printf "%.1f", k / 1024 }')
        printf ' %8s  %s\n' "$peak" "$(target_verdict "$id" "$t")"
    done
}

target_verdict() {
    local id="$1" t="$2"
    [ -n "${bench_targets[$id]:-}" ] || return 0
    local ref max
    read -r ref max <<<"${bench_targets[$id]}"
    if [ -n "${bench_skipped[$ref]:-}" ]; then
        echo "<= ${max}x $ref: not measured"
        return
    fi
    local r
    r=$(ratio "$t" "$(median_of "$ref")")
    echo "<= ${max}x $ref: $(awk -v r="$r" -v m="$max" 'BEGIN { print (r <= m) ? "met" : "MISSED" }')"
}

# ID LABEL: the contender's peak memory, against a target of 150 MB.
print_peak_target() {
    local id="$1" label="$2"
    local kib="${bench_peak_kib[$id]:-0}"
    awk -v k="$kib" -v l="$label" 'BEGIN {
        mb = k / 1024
        printf "  peak memory of %s: %.1f MB, target < 150 MB: %s\n", l, mb, (mb < 150) ? "met" : "MISSED" }'
}

# The manual verified workflow: the copies, made durable, then every file of the source and both
# copies hashed from the disk and the lists compared, as an operator would check an offload.
hash_tree() {
    local dir="$1"
    shift
    (cd "$dir" && find . -type f -print0 | sort -z | xargs -0 -r "$@")
}

verify_copies_by_hand() {
    local tool="$1" src="$2" name
    name=$(basename "$src")
    local hasher=("$tool")
    # xxh128sum draws progress on stderr for large files, which would cut through the table.
    [ "$tool" != xxh128sum ] || hasher+=(-q)
    drop_page_cache
    hash_tree "$src" "${hasher[@]}" >"$work/sums-src.txt"
    hash_tree "$work/d1/$name" "${hasher[@]}" >"$work/sums-d1.txt"
    hash_tree "$work/d2/$name" "${hasher[@]}" >"$work/sums-d2.txt"
    if ! cmp -s "$work/sums-src.txt" "$work/sums-d1.txt" || ! cmp -s "$work/sums-src.txt" "$work/sums-d2.txt"; then
        echo "bench: the manual $tool check found a copy differing from $src" >&2
        exit 1
    fi
}

copy_twice() {
    local tool="$1" src="$2"
    shift 2
    "$tool" "$@" "$src" "$work/d1/"
    "$tool" "$@" "$src" "$work/d2/"
    sync
}

igd_supports_verify() {
    "$igd" ingest --help 2>&1 | grep -q -- "$1"
}
