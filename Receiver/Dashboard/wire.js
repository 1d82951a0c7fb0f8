// The report's JSON as the rest of the page uses it. Whatever does not have the expected form is left out here.

import {parseTime} from './format.js';
import {asArray, asNumber, asObject, asText} from './text.js';

const mostRecords = 20000;

/// The black box and the log: times in milliseconds, each list from the oldest to the newest.
export function recordsOf(report) {
    const box = asObject(report.blackbox);
    const log = asObject(report.log);
    return {
        cpu: samples(box.cpu_usage_history),
        appMemory: samples(box.application_memory_usage_history),
        memory: samples(box.memory_usage_history),
        disk: samples(box.disk_space_usage_history),
        battery: timed(box.battery_usage_history, ({level, status}) => ({value: measured(level), state: asText(status)})),
        network: timed(box.network_usage_history, ({type, name}) => ({type: asText(type), name: asText(name)})),
        orientation: timed(box.device_orientation_history, ({value}) => ({code: asText(value)})),
        sessions: timed(report.sessions, ({state}) => ({code: asText(state)})),
        taps: timed(log.user_taps, (tap) => ({className: asText(tap.class_name), view: asText(tap.view), property: asText(tap.property)})),
        requests: timed(log.network_requests, requestOf),
    };
}

function samples(list) {
    return timed(list, ({value}) => ({value: measured(value)}));
}

/// A measurement that failed is written as -1.
function measured(value) {
    const number = asNumber(value);
    return number === null || number < 0 ? null : number;
}

function timed(list, read) {
    return asArray(list).slice(-mostRecords).map(asObject)
        .map((record) => ({time: parseTime(record.time_occurred ?? record.timestamp), ...read(record)}))
        .filter(({time}) => time !== null)
        .sort((a, b) => a.time - b.time);
}

function requestOf(record) {
    const status = asText(record.statuc_code); // the wire's own spelling
    const seconds = asNumber(record.duration);
    return {
        method: asText(record.method),
        status,
        failed: Number(status) >= 400,
        unanswered: status === '' || status === '0', // yet, or for ever: the report does not tell
        url: asText(record.url),
        duration: seconds === null || seconds < 0 ? null : seconds * 1000,
        requestHeaders: asObject(record.request_headers),
        requestBody: asText(record.request_body),
        responseHeaders: asObject(record.response_headers),
        responseBody: asText(record.response_body),
    };
}
