// What a report says may be missing, of any type, huge or made to mislead. These make texts of it that can be shown.

// Not the joiners U+200C and U+200D: Persian words and many emoji are written with them.
const hiddenCharacters = /[\u0000-\u001f\u007f-\u009f\u200b\u200e\u200f\u2028-\u202e\u2060-\u2069\ufeff\u061c]/g;
const emailAddress = /^[^\s@<>"'(),;:?&%\\]+@[^\s@<>"'(),;:?&%\\]+$/;

/// '' for what is missing; objects as JSON.
export function asText(value) {
    if (typeof value === 'string')
        return value;
    if (value === null || value === undefined)
        return '';
    return typeof value === 'object' ? JSON.stringify(value) : String(value);
}

/// A number, also one that is written as text; null for all else.
export function asNumber(value) {
    const number = typeof value === 'string' && value.trim() !== '' ? Number(value) : value;
    return typeof number === 'number' && Number.isFinite(number) ? number : null;
}

export function asArray(value) {
    return Array.isArray(value) ? value : [];
}

export function asObject(value) {
    return value !== null && typeof value === 'object' && !Array.isArray(value) ? value : {};
}

/// On one line, and with what would be invisible or turn the reading direction written out, as in "\u202e".
export function visible(value, maximum = 400) {
    const text = asText(value);
    const cut = text.length > maximum ? text.slice(0, maximum) + '…' : text;
    return cut.replace(/\s+/g, ' ').trim()
        .replace(hiddenCharacters, (c) => '\\u' + c.charCodeAt(0).toString(16).padStart(4, '0'));
}

export function firstLine(value) {
    const [line] = asText(value).slice(0, 2000).trimStart().split(/[\r\n\u2028\u2029]/, 1);
    return line.trim();
}

/// The address to write to, or null when it is not one for certain.
export function mailtoLink(address, subject) {
    if (address.length > 254 || !emailAddress.test(address))
        return null;
    return `mailto:${encodeURIComponent(address).replace('%40', '@')}?subject=${encodeURIComponent(subject)}`;
}

/// The address if it leads to the web, else null: a script's address never becomes a link.
export function webLink(address) {
    try {
        const url = new URL(address);
        return url.protocol === 'http:' || url.protocol === 'https:' ? url.href : null;
    } catch {
        return null;
    }
}
