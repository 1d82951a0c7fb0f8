// What an engineer would want to hear first: that which is out of the ordinary just before the report.

import {batteryLevel, usage} from './facts.js';
import {duration, megabytes, percent, plural} from './format.js';
import {asNumber, visible} from './text.js';
import {requestName, tapText} from './timelineLanes.js';

const lowBattery = 0.15;
const littleFree = 0.05;
const busyCpu = 90; // percent of one core
const growth = 1.5; // times the memory at the beginning

/// [{text, level: 'bad' | 'warn' | 'plain', time?, table?: 'requests' | 'taps'}]; `end` is when it was reported.
export function noticesOf(report, records, end) {
    return [...requests(records, end), ...offline(report, records, end), ...memory(report, records), ...cpu(records),
        ...disk(report), ...battery(report), ...lastTap(records, end)];
}

function requests({requests: all}, end) {
    const failed = all.filter((request) => request.failed);
    const unanswered = all.filter((request) => request.unanswered);
    const last = failed.at(-1);
    return [
        last && {level: 'bad', table: 'requests', time: last.time, text: `${failed.length} of ${plural(all.length, 'request')} failed, last: `
            + `${requestName(last)} → ${visible(last.status, 20)}, ${duration(Math.max(0, end - last.time))} before`},
        unanswered.length && {level: 'warn', table: 'requests', time: unanswered.at(-1).time, text: `${plural(unanswered.length, 'request')} without an answer`},
    ].filter(Boolean);
}

function offline(report, {network}, end) {
    if (report.network_type === 'offline')
        return [{level: 'bad', text: 'Offline when reported'}];
    const last = network.findLast(({type}) => type === 'offline');
    return last ? [{level: 'warn', time: last.time, text: `Offline ${duration(Math.max(0, end - last.time))} before`}] : [];
}

function memory(report, {appMemory}) {
    const result = [];
    const values = appMemory.map(({value}) => value).filter((value) => value !== null);
    if (values.length > 2 && values.at(-1) > values[0] * growth)
        result.push({level: 'warn', text: `App memory grew from ${megabytes(values[0])} to ${megabytes(values.at(-1))}`});
    const device = usage(report.used_memory, report.available_memory);
    if (device && device.freeShare < littleFree)
        result.push({level: 'warn', text: `Memory ${percent(device.freeShare)} free`});
    return result;
}

function cpu({cpu: samples}) {
    const peak = samples.reduce((most, sample) => (sample.value ?? -1) > (most?.value ?? -1) ? sample : most, null);
    return peak && peak.value >= busyCpu ? [{level: 'warn', time: peak.time, text: `CPU peaked at ${Math.round(peak.value)} %`}] : [];
}

function disk(report) {
    const space = usage(report.used_disk_space, report.available_disk_space);
    return space && space.freeShare < littleFree ? [{level: 'warn', text: `Disk ${percent(space.freeShare)} free`}] : [];
}

function battery(report) {
    const level = batteryLevel(report.battery_level);
    const charging = asNumber(report.battery_status) === 2;
    return level !== null && level <= lowBattery && !charging ? [{level: 'warn', text: `Battery ${percent(level)}`}] : [];
}

/// Taps on the reporting itself tell nothing of what went wrong.
function lastTap({taps}, end) {
    const tap = taps.findLast(({time, view}) => time <= end && view !== 'Wexel');
    return tap ? [{level: 'plain', table: 'taps', time: tap.time, text: `${tapText(tap).replace('Tap', 'Last tap')}, ${duration(end - tap.time)} before`}] : [];
}
