<?php
// Converting a long entry again after a small edit: the text is cut into runs of whole
// top-level blocks, each run converted on its own and remembered by its content, so only the
// runs an edit touched are converted again. Cuts are made only where the blocks on either
// side cannot affect each other; a text with anything that ties distant blocks together
// (link reference or footnote definitions, HTML blocks that may hold blank lines) is never
// cut, and its conversion is the whole-text one.

const VELLOX_CHUNK_MIN_BYTES = 1024;
const VELLOX_CHUNK_MAX_BYTES = 8192;
const VELLOX_CHUNK_CACHE_BYTES = 16 << 20;

function vellox_chunk_is_uncuttable(string $source): bool
{
    return preg_match('/^ {0,3}\[[^\]\n]+\]:/m', $source) === 1
        || preg_match('/<(?:pre|script|style|textarea)\b|<!--|<\?|<!\[CDATA\[|<![A-Za-z]/i', $source) === 1
        // An HTML block swallows a fence line, and a fence inside a list item ends with the
        // item: either would make a fence line mean something else than it seems to here.
        || preg_match('/^ {0,3}<[A-Za-z\/!?]|^ {1,3}(?:`{3}|~{3})/m', $source) === 1;
}

// A line that may start a run: after a blank line, outside fenced code, at the margin, and
// not something that continues what came before (a list item or a block quote joins the
// list or quote above it across a blank line).
function vellox_chunk_may_start(string $line): bool
{
    if ($line === '' || $line[0] === ' ' || $line[0] === "\t" || $line[0] === '>') {
        return false;
    }
    return preg_match('/^(?:[-+*]|[0-9]{1,9}[.)])(?:[ \t]|$)/', $line) !== 1;
}

// The text in runs whose concatenation is the text; one run when it must not be cut.
function vellox_chunk_split(string $source): array
{
    if (strlen($source) < 2 * VELLOX_CHUNK_MIN_BYTES || vellox_chunk_is_uncuttable($source)) {
        return [$source];
    }
    $runs = [];
    $start = 0;
    $offset = 0;
    $length = strlen($source);
    $previousBlank = false;
    $fence = null;
    while ($offset < $length) {
        $end = strpos($source, "\n", $offset);
        $next = $end === false ? $length : $end + 1;
        $line = rtrim(substr($source, $offset, $next - $offset), "\r\n");
        if ($fence !== null) {
            if (preg_match('/^ {0,3}(`{3,}|~{3,})[ \t]*$/', $line, $m) === 1
                && $m[1][0] === $fence[0] && strlen($m[1]) >= strlen($fence)) {
                $fence = null;
            }
            $previousBlank = false;
        } else {
            $size = $offset - $start;
            // Cut where the line itself says so, so the same text is cut the same way
            // wherever an edit happened before it.
            if ($previousBlank && $size >= VELLOX_CHUNK_MIN_BYTES && vellox_chunk_may_start($line)
                && ($size >= VELLOX_CHUNK_MAX_BYTES || (crc32($line) & 7) === 0)) {
                $runs[] = substr($source, $start, $offset - $start);
                $start = $offset;
            }
            if (preg_match('/^ {0,3}(`{3,}|~{3,})/', $line, $m) === 1) {
                $fence = $m[1];
            }
            $previousBlank = trim($line) === '';
        }
        $offset = $next;
    }
    $runs[] = substr($source, $start);
    return $runs;
}

const VELLOX_CHUNK_HEAD_BYTES = 3072;

// Converts with $convert, run by run, reusing what earlier conversions made of equal runs.
// With $headBytes, only the leading runs that hold that many bytes of the text.
function vellox_chunk_convert(string $flavour, string $source, callable $convert,
                              int $headBytes = PHP_INT_MAX, bool &$whole = true): string
{
    static $cache = [];
    static $cacheBytes = 0;
    $runs = vellox_chunk_split($source);
    $whole = true;
    if (count($runs) === 1) {
        return $convert($source);
    }
    $html = '';
    $used = [];
    $taken = 0;
    foreach ($runs as $run) {
        if ($taken >= $headBytes) {
            $whole = false;
            break;
        }
        $taken += strlen($run);
        $key = $flavour . ':' . md5($run);
        if (isset($cache[$key])) {
            $piece = $cache[$key];
            // Most recently used last, so the oldest are dropped first.
            unset($cache[$key]);
        } else {
            $piece = $convert($run);
            $cacheBytes += strlen($piece);
        }
        $cache[$key] = $piece;
        $used[$key] = true;
        $html .= $piece;
    }
    while ($cacheBytes > VELLOX_CHUNK_CACHE_BYTES && $cache) {
        $oldest = array_key_first($cache);
        if (isset($used[$oldest])) {
            break;
        }
        $cacheBytes -= strlen($cache[$oldest]);
        unset($cache[$oldest]);
    }
    return $html;
}

// The HTML of the text's first runs, which the whole text's HTML starts with, behind "P"; or
// the whole text's HTML behind "W" when the text is short or cannot be cut.
function vellox_chunk_convert_head(string $flavour, string $source, callable $convert): string
{
    $whole = true;
    $html = vellox_chunk_convert($flavour, $source, $convert, VELLOX_CHUNK_HEAD_BYTES, $whole);
    return ($whole ? 'W' : 'P') . $html;
}
