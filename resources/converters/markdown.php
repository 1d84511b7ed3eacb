<?php
// Markdown filter: UTF-8 Markdown on standard input, an HTML body fragment on standard output.
// CommonMark with the GitHub extensions (tables, strikethrough, autolinks, task lists) and
// footnotes. Raw HTML in an entry is the writer's own and passes through untouched.

error_reporting(E_ALL & ~E_DEPRECATED);
ini_set('display_errors', 'stderr');
ini_set('log_errors', '0');

require_once __DIR__ . '/lib/commonmark.php';
require_once __DIR__ . '/lib/chunks.php';

// A long text converts far faster in runs of blocks than in one piece.
$source = stream_get_contents(STDIN);
echo vellox_chunk_convert('markdown', $source === false ? '' : $source,
    fn (string $run) => vellox_commonmark_convert($run, false));
