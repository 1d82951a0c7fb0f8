// Every fact of a report with its unit, in groups. What is not known here is shown under its own name.

import {deviceTime, duration, localTime, megabytes, parseTime, percent} from './format.js';
import {batteryState, localeName, networkName, orientationName, zoneName} from './names.js';
import {asNumber, asText, visible} from './text.js';

const elsewhere = new Set(['title', 'description', 'tester_email', 'quick_facts', 'permissions', 'blackbox', 'log', 'sessions',
    'files', 'screenshot_url']);

/// [[group, [[name, text]...]]...]; facts that are missing are left out.
export function factGroups({report, received, bundle_id: bundleId}) {
    const used = new Set(elsewhere);
    const take = (key) => {
        used.add(key);
        return report[key];
    };
    const time = parseTime(take('issue_reported_time'));
    const groups = [
        ['Application', [
            ['Bundle id', bundleId],
            ['Version', withNote(take('app_version'), take('build_version'))],
            ['View', take('current_view')],
            ['Library', take('sdk_version')],
            ['Report', take('report_type')],
        ]],
        ['Device', [
            ['Model', take('device')],
            ['System', [take('os'), withNote(take('os_version'), take('os_build_version'))].filter(Boolean).map(asText).join(' ')],
            ['Platform', take('platform')],
            ['Screen', screen(take('screen_width'), take('screen_height'))],
            ['Orientation', known(take('device_orientation'), orientationName)],
            ['Owner check', {0: 'not set up', 1: 'available'}[take('authentication')] ?? report.authentication],
        ]],
        ['State', [
            ['Memory', share(take('used_memory'), take('available_memory'))],
            ['App memory', known(asNumber(take('used_application_memory')), megabytes)],
            ['Disk', share(take('used_disk_space'), take('available_disk_space'))],
            ['Battery', battery(take('battery_level'), take('battery_status'))],
            ['Network', network(take('network_type'), take('network_name'))],
        ]],
        ['Time and place', [
            ['Reported', time === null ? report.issue_reported_time : localTime(time)],
            ['On the device', time === null ? null : deviceTime(report.issue_reported_time)],
            ['Received', time === null ? localTime(received) : `${localTime(received)} (${delay(received - time)})`],
            ['Time zone', known(take('timezone'), (zone) => zoneName(zone, time ?? received))],
            ['Locale', known(take('locale'), localeName)],
        ]],
    ];
    groups.push(['Other', Object.entries(report).filter(([key]) => !used.has(key)).slice(0, 100)
        .map(([key, value]) => [visible(key, 60), value])]);
    return groups.map(([name, facts]) => [name, facts.map(([key, value]) => [key, visible(value)]).filter(([, text]) => text)])
        .filter(([, facts]) => facts.length > 0);
}

/// {used, total, free} as shares and bytes, or null unless both numbers make sense.
export function usage(used, total) {
    const [usedNumber, totalNumber] = [asNumber(used), asNumber(total)];
    if (usedNumber === null || totalNumber === null || totalNumber <= 0 || usedNumber < 0)
        return null;
    return {used: usedNumber, total: totalNumber, freeShare: Math.max(0, 1 - usedNumber / totalNumber)};
}

export function batteryLevel(level) {
    const number = asNumber(level);
    return number === null || number < 0 || number > 1 ? null : number;
}

function known(value, describe) {
    return value === null || value === undefined || value === '' ? null : describe(value);
}

function withNote(value, note) {
    return asText(note) ? `${asText(value)} (${asText(note)})` : asText(value);
}

function screen(width, height) {
    return asNumber(width) && asNumber(height) ? `${width} × ${height} pixels` : null;
}

function share(used, total) {
    const known = usage(used, total);
    if (known)
        return `${megabytes(known.used)} of ${megabytes(known.total)} used, ${percent(known.freeShare)} free`;
    const [alone, all] = [asNumber(used), asNumber(total)];
    return alone !== null ? `${megabytes(alone)} used` : all !== null ? `${megabytes(all)} in all` : null;
}

function battery(level, status) {
    const known = batteryLevel(level);
    return [known === null ? null : percent(known), batteryState(status)].filter(Boolean).join(', ');
}

function network(type, name) {
    return type === undefined && name === undefined ? null : networkName(type, asText(name));
}

function delay(milliseconds) {
    return milliseconds < 0 ? `the device’s clock is ${duration(-milliseconds)} ahead` : `${duration(milliseconds)} later`;
}
