<?php
// Smark filter: UTF-8 Smark on standard input, an HTML body fragment on standard output.
// Smark is Markdown with smart typography (curly quotes, dashes, ellipses), bare addresses
// turned into links, and a line holding only an image path shown as that image.

error_reporting(E_ALL & ~E_DEPRECATED);
ini_set('display_errors', 'stderr');
ini_set('log_errors', '0');

require_once __DIR__ . '/lib/commonmark.php';
require_once __DIR__ . '/lib/chunks.php';

// A long text converts far faster in runs of blocks than in one piece.
$source = stream_get_contents(STDIN);
echo vellox_chunk_convert('smark', $source === false ? '' : $source,
    fn (string $run) => vellox_commonmark_convert($run, true));
