// Numbers and times as people read them. Times are milliseconds since 1970 unless they are texts of the report.

const units = ['bytes', 'KB', 'MB', 'GB', 'TB'];
const day = 24 * 3600 * 1000;
const dateAndTime = new Intl.DateTimeFormat(undefined, {dateStyle: 'medium', timeStyle: 'medium'});
const dateAndZone = new Intl.DateTimeFormat(undefined, {dateStyle: 'full', timeStyle: 'long'});
const dayAndMonth = new Intl.DateTimeFormat(undefined, {day: 'numeric', month: 'short'});
const dayAndYear = new Intl.DateTimeFormat(undefined, {day: 'numeric', month: 'short', year: 'numeric'});

export function bytes(count) {
    let value = count;
    let unit = 0;
    for (; Math.abs(value) >= 1000 && unit < units.length - 1; unit++)
        value /= 1024;
    return `${shortNumber(value, unit === 0)} ${count === 1 ? 'byte' : units[unit]}`;
}

export function megabytes(count) {
    return bytes(count * 1024 * 1024);
}

function shortNumber(value, whole = false) {
    const digits = whole || Number.isInteger(value) ? 0 : 1; // so that a column lines up, and a limit is "500 MB"
    return value.toLocaleString(undefined, {minimumFractionDigits: digits, maximumFractionDigits: digits});
}

export function integer(value) {
    return value.toLocaleString();
}

export function plural(count, one, many = one + 's') {
    return `${integer(count)} ${count === 1 ? one : many}`;
}

/// A share of 0 to 1.
export function percent(share) {
    return `${Math.round(share * 100)} %`;
}

/// "12 ms", "1.2 s", "3 min 5 s", "2 h 10 min", "3 days"
export function duration(milliseconds) {
    const seconds = milliseconds / 1000;
    if (seconds < 1)
        return `${Math.round(milliseconds)} ms`;
    if (seconds < 60)
        return `${shortNumber(seconds)} s`;
    if (seconds < 3600)
        return `${Math.floor(seconds / 60)} min ${Math.floor(seconds % 60)} s`;
    if (milliseconds < day)
        return `${Math.floor(seconds / 3600)} h ${Math.floor(seconds % 3600 / 60)} min`;
    return plural(Math.floor(milliseconds / day), 'day');
}

/// How long ago in a narrow column: "now", "5 min", "3 h", "6 d", then the date.
export function age(time, now = Date.now()) {
    const minutes = Math.floor((now - time) / 60000);
    if (minutes < 1)
        return 'now';
    if (minutes < 60)
        return `${minutes} min`;
    if (minutes < 24 * 60)
        return `${Math.floor(minutes / 60)} h`;
    if (minutes < 7 * 24 * 60)
        return `${Math.floor(minutes / 60 / 24)} d`;
    const sameYear = new Date(time).getFullYear() === new Date(now).getFullYear();
    return (sameYear ? dayAndMonth : dayAndYear).format(time);
}

export function ago(time, now = Date.now()) {
    const text = age(time, now);
    return text === 'now' ? 'just now' : now - time < 7 * day ? `${text} ago` : `on ${text}`;
}

export function localTime(time) {
    return dateAndTime.format(time);
}

/// As `localTime`, with the name of the reader's zone.
export function zonedTime(time) {
    return dateAndZone.format(time);
}

/// Of the day, in the reader's zone, to the millisecond if asked for.
export function clock(time, precise = true) {
    const date = new Date(time);
    const two = (number) => String(number).padStart(2, '0');
    const seconds = `${two(date.getHours())}:${two(date.getMinutes())}:${two(date.getSeconds())}`;
    return precise ? `${seconds}.${String(date.getMilliseconds()).padStart(3, '0')}` : seconds;
}

/// The time of a record, "2026-11-21T16:20:01.385Z" or with an offset; null for anything else.
export function parseTime(text) {
    if (typeof text !== 'string' || !/^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d/.test(text))
        return null;
    const time = Date.parse(text);
    return Number.isNaN(time) ? null : time;
}

/// As the device's clock showed it: "21 Nov 2026, 17:20:01 (+01:00)".
export function deviceTime(text) {
    const offset = /(Z|[+-]\d\d:\d\d)$/.exec(text)?.[1] ?? '';
    const wall = Date.parse(text.slice(0, 19) + 'Z');
    if (Number.isNaN(wall))
        return text;
    const shown = new Intl.DateTimeFormat(undefined, {dateStyle: 'medium', timeStyle: 'medium', timeZone: 'UTC'});
    return `${shown.format(wall)} (${offset === 'Z' ? 'UTC' : 'UTC' + offset})`;
}
