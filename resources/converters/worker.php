<?php
// Long-lived converter for the languages done in PHP: the application starts it once and
// sends it one text after another, so neither PHP's start nor the set-up of a converter is
// paid per conversion. The filters (markdown.php and the others) share its code and remain
// the way to convert a single text.
//
// Request on standard input:  "<key word> <byte count>\n" followed by that many bytes of UTF-8.
// Reply on standard output:   "<status> <byte count>\n" followed by the HTML; status 0 is
// success, anything else is what the filter would have exited with.
// The worker ends at the end of its input, or at the first request it cannot read.

error_reporting(E_ALL & ~E_DEPRECATED);
ini_set('display_errors', 'stderr');
ini_set('log_errors', '0');

function vellox_worker_convert(string $language, string $source, int &$status): ?string
{
    $status = 0;
    switch ($language) {
        case 'markdown':
        case 'smark':
            require_once __DIR__ . '/lib/commonmark.php';
            require_once __DIR__ . '/lib/chunks.php';
            $smark = $language === 'smark';
            return vellox_chunk_convert($language, $source,
                fn (string $run) => vellox_commonmark_convert($run, $smark));
        case 'markdownhead':
        case 'smarkhead':
            // The first screens of a long text, for a preview to show while the rest converts.
            require_once __DIR__ . '/lib/commonmark.php';
            require_once __DIR__ . '/lib/chunks.php';
            $smark = $language === 'smarkhead';
            return vellox_chunk_convert_head(substr($language, 0, -4), $source,
                fn (string $run) => vellox_commonmark_convert($run, $smark));
        case 'bbcode':
            require_once __DIR__ . '/lib/bbcode.php';
            return vellox_bbcode_convert($source);
        case 'textile':
            require_once __DIR__ . '/lib/pandoc.php';
            return vellox_pandoc_convert('textile', $source, $status);
        case 'wikitext':
            require_once __DIR__ . '/lib/pandoc.php';
            return vellox_pandoc_convert('mediawiki', $source, $status);
        case 'html':
            return $source;
    }
    return null;
}

function vellox_worker_read(int $length): ?string
{
    $data = '';
    while (strlen($data) < $length) {
        $chunk = fread(STDIN, min($length - strlen($data), 1 << 20));
        if ($chunk === false || $chunk === '') {
            return null;
        }
        $data .= $chunk;
    }
    return $data;
}

while (($header = fgets(STDIN)) !== false) {
    if (!preg_match('/^([a-z]+) ([0-9]{1,10})\n$/', $header, $match)) {
        fwrite(STDERR, "Vellox converter: unreadable request\n");
        exit(2);
    }
    $source = vellox_worker_read((int) $match[2]);
    if ($source === null) {
        exit(2);
    }
    $status = 0;
    $html = vellox_worker_convert($match[1], $source, $status);
    if ($html === null) {
        fwrite(STDERR, "Vellox converter: unknown language {$match[1]}\n");
        exit(2);
    }
    unset($source);
    fwrite(STDOUT, $status . ' ' . strlen($html) . "\n");
    fwrite(STDOUT, $html);
    fflush(STDOUT);
    unset($html);
    // A document tree is full of cycles; of this conversion only the HTML of its runs is kept
    // for the next.
    gc_collect_cycles();
}
